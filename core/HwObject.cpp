// Root class of the datablock classes: debug checks and lines through HwDebug.
#include "HwObject.h"

#include "HwDebug.h"

#include <QObject>

namespace Tupsim {

HwObject::~HwObject() = default;

int HwObject::getDebugLevel() {
    return HwDebug::Debug;
}

int HwObject::chkdbg(int cls) {
    return HwDebug::checkOutput(cls, getDebugLevel()) ? 1 : 0;
}

int HwObject::chkdbg(int cls, int level) const {
    return HwDebug::checkOutput(cls, level) ? 1 : 0;
}

void HwObject::dbgout(const QString& text) const {
    HwDebug::println(HwDebug::getLastClass(), HwDebug::getLastLevel(), text);
}

void HwObject::dbgout(int level, const QString& text) const {
    HwDebug::println(HwDebug::getLastClass(), level, text);
}

QString HwObject::getClassName(const QString& prefix) {
    if (const QObject* object = dynamic_cast<const QObject*>(this))
        return prefix + object->objectName();
    return prefix + QStringLiteral("<no QObject class>");
}

} // namespace Tupsim
