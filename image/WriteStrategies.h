// The two ways writeImage puts content on a target: replacing a file, or writing a device in
// place. Each fills in a WriteResult; neither is called for a directory.
#pragma once

#include "ImageSource.h"
#include "ImageWriter.h"

namespace Tupsim {

// `source` is null when nothing exists at `path` yet.
WriteResult replaceFile(const QString& path, const QByteArray& content, const WriteOptions& options,
                        const ImageSource* source);
WriteResult writeInPlace(const QString& path, const QByteArray& content,
                         const WriteOptions& options, const ImageSource& source);

} // namespace Tupsim
