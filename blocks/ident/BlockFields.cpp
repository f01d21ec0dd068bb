// Shared plumbing of the identification and service blocks.
#include "blocks/ident/BlockFields.h"

#include "IErrorManager.h"

#include <cstdarg>
#include <cstdio>

namespace Tupsim {
namespace blockfields {

QByteArray freshImage(quint16 id, quint16 size) {
    QByteArray image(size, '\0');
    bytes::putLE<quint16>(image, 0, id);
    bytes::putLE<quint16>(image, 2, size);
    return image;
}

QByteArray recordCopy(const void* record, int size) {
    if (record == nullptr || size <= 0)
        return QByteArray();
    return QByteArray(static_cast<const char*>(record), size);
}

void signalRejected(int code, const char* text) {
    HwDatablock::registerErrors();
    errorManager()->signal(code, QString::fromLatin1(text));
}

bool acceptRecord(HwDatablock& block, const void* record, int size, const char* text, int code,
                  int requiredId) {
    QByteArray raw = recordCopy(record, size);
    if (raw.isEmpty() || raw.size() > 0xFFFF)
        return false;
    bool accepted = block.verifyChecksum(reinterpret_cast<unsigned short*>(raw.data()),
                                         static_cast<unsigned short>(raw.size()), true);
    if (requiredId >= 0)
        accepted = accepted && bytes::getLE<quint16>(raw, 0) == requiredId &&
                   bytes::getLE<quint16>(raw, 2) == size;
    if (!accepted)
        signalRejected(code, text);
    return accepted;
}

quint32 counterAt(const QByteArray& image, unsigned int index) {
    return bytes::getLE<quint32>(image, FirstCounter + 4 * std::uint64_t{index});
}

bool storeCounter(QByteArray& image, unsigned int index, quint32 value) {
    return store<quint32>(image, FirstCounter + 4 * std::uint64_t{index}, value);
}

unsigned char* areaWithLength(QByteArray& image, int offset, int width, int lengthOffset,
                              unsigned int* length) {
    if (length != nullptr)
        *length = bytes::getLE<quint32>(image, static_cast<std::uint64_t>(lengthOffset));
    if (!bytes::fits(static_cast<std::uint64_t>(image.size()), static_cast<std::uint64_t>(offset),
                     static_cast<std::uint64_t>(width)))
        return nullptr;
    return reinterpret_cast<unsigned char*>(image.data()) + offset;
}

void importHeader(HwDatablock& block, const QByteArray& record, unsigned short size,
                  unsigned short alignment) {
    block.setBlockSize(size);
    block.setBlockId(bytes::getLE<quint16>(record, 0));
    block.setAlignment(alignment);
}

void keepRecordChecksum(HwDatablock& block, const QByteArray& record) {
    block.setChecksum(bytes::getLE<quint16>(record, 4));
}

std::string format(const char* pattern, ...) {
    char buffer[128];
    va_list args;
    va_start(args, pattern);
    const int length = std::vsnprintf(buffer, sizeof buffer, pattern, args);
    va_end(args);
    if (length < 0)
        return std::string();
    return std::string(buffer,
                       std::min<std::size_t>(static_cast<std::size_t>(length), sizeof buffer - 1));
}

std::string fieldText(const QByteArray& image, int offset, int width) {
    std::string text;
    for (int i = 0; i < width && offset + i < image.size(); ++i) {
        const char c = image.at(offset + i);
        if (c == '\0')
            break;
        text.push_back(c);
    }
    return text;
}

bool storeText(QByteArray& image, int offset, int width, const char* text, int textLength) {
    if (offset < 0 || width < 0 ||
        !bytes::fits(static_cast<std::uint64_t>(image.size()), static_cast<std::uint64_t>(offset),
                     static_cast<std::uint64_t>(width)))
        return false;
    char* field = image.data() + offset;
    int i = 0;
    for (; text != nullptr && i < width && i < textLength && text[i] != '\0'; ++i)
        field[i] = text[i];
    for (; i < width; ++i)
        field[i] = '\0';
    return true;
}

} // namespace blockfields
} // namespace Tupsim
