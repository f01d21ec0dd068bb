// Many images in one call: the walk of the named paths and the read of one image after another.
#include "ImageBatch.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <vector>

namespace Tupsim {

const char* verdictName(ImageVerdict verdict) {
    switch (verdict) {
    case ImageVerdict::Ok:
        return "ok";
    case ImageVerdict::FailedChecks:
        return "failed checks";
    case ImageVerdict::BrokenChain:
        return "broken chain";
    case ImageVerdict::Unreadable:
        return "unreadable";
    }
    return "";
}

ImageVerdict verdictOf(const BatchItem& item) {
    if (!item.readable)
        return ImageVerdict::Unreadable;
    if (item.image.chainBroken())
        return ImageVerdict::BrokenChain;
    return item.image.ok() ? ImageVerdict::Ok : ImageVerdict::FailedChecks;
}

void BatchTally::add(const BatchItem& item) {
    switch (verdictOf(item)) {
    case ImageVerdict::Ok:
        ++ok;
        break;
    case ImageVerdict::FailedChecks:
        ++failedChecks;
        break;
    case ImageVerdict::BrokenChain:
        ++brokenChain;
        break;
    case ImageVerdict::Unreadable:
        ++unreadable;
        break;
    }
}

namespace imageBatch {

namespace {

using Visit = std::function<void(const QString&, const QString&)>;

// One directory being walked: its entries in name order and the next one to look at.
struct Level {
    QString prefix; // the directory's path with a trailing '/'
    QFileInfoList entries;
    int next = 0;
};

QString withSlash(const QString& directory) {
    return directory.endsWith(QLatin1Char('/')) ? directory : directory + QLatin1Char('/');
}

// The entries of a directory, files and subdirectories without links, in name order; false
// when it cannot be listed.
bool listDirectory(const QString& directory, QFileInfoList& entries) {
    const QFileInfo info(directory);
    // Listing needs read permission; looking at what it holds needs search permission.
    if (!info.isReadable() || !info.isExecutable())
        return false;
    entries = QDir(directory).entryInfoList(QDir::Files | QDir::Dirs | QDir::Hidden |
                                                QDir::NoDotAndDotDot | QDir::NoSymLinks,
                                            QDir::Unsorted);
    std::sort(entries.begin(), entries.end(),
              [](const QFileInfo& a, const QFileInfo& b) { return a.fileName() < b.fileName(); });
    return true;
}

// Walks one named directory without recursion, so that a deep tree cannot exhaust the stack;
// returns how many paths it handed on.
int walkDirectory(const QString& root, const Visit& visit) {
    const QString unlistable = QStringLiteral("cannot list the directory: permission denied");
    int handed = 0;
    std::vector<Level> stack(1);
    stack.back().prefix = withSlash(root);
    if (!listDirectory(root, stack.back().entries)) {
        visit(root, unlistable);
        return 1;
    }
    while (!stack.empty()) {
        Level& level = stack.back();
        if (level.next >= level.entries.size()) {
            stack.pop_back();
            continue;
        }
        const QFileInfo& entry = level.entries[level.next++];
        const QString path = level.prefix + entry.fileName();
        if (!entry.isDir()) {
            visit(path, QString());
            ++handed;
            continue;
        }
        Level below;
        below.prefix = path + QLatin1Char('/');
        if (!listDirectory(path, below.entries)) {
            visit(path, unlistable);
            ++handed;
            continue;
        }
        stack.push_back(std::move(below));
    }
    return handed;
}

} // namespace

void walk(const QStringList& paths, bool recursive, const Visit& visit) {
    for (const QString& path : paths) {
        // A directory named on the command line is walked even when it is a link to one.
        if (!recursive || !QFileInfo(path).isDir()) {
            visit(path, QString());
            continue;
        }
        if (walkDirectory(path, visit) == 0)
            visit(path, QStringLiteral("the directory holds no files"));
    }
}

BatchTally forEachImage(const QStringList& paths, bool recursive, int chainStart,
                        const std::function<void(const BatchItem&)>& visit) {
    BatchTally tally;
    walk(paths, recursive, [&](const QString& path, const QString& reason) {
        BatchItem item;
        item.path = path;
        item.reason = reason;
        if (reason.isEmpty()) {
            const Outcome read = EepromImage::readFile(path, item.image, chainStart);
            item.readable = read.ok();
            item.reason = read.message;
        }
        tally.add(item);
        visit(item);
    });
    return tally;
}

} // namespace imageBatch
} // namespace Tupsim
