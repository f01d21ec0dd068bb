// A whole image read from disk, walked and checked block by block.
#pragma once

#include "BlockReport.h"
#include "Chain.h"

#include <QVector>

namespace epromtool {

class BlockCatalogue;

class ImageReport {
public:
    // False when the file cannot be read; readError() then says why.
    bool load(const QString& path, BlockCatalogue& catalogue);

    const QString& path() const { return imagePath; }
    const QString& readError() const { return error; }
    const QByteArray& bytes() const { return content; }
    const Chain& chain() const { return walked; }
    const QVector<BlockReport>& blocks() const { return reports; }

    // Checksum and CRC failures in chain order, then what broke the chain.
    QVector<Problem> problems() const;
    // 2 for a broken chain, else 1 when a check failed, else 0.
    int exitCode() const;

private:
    QString imagePath;
    QString error;
    QByteArray content;
    Chain walked;
    QVector<BlockReport> reports;
};

} // namespace epromtool
