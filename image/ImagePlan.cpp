// Applying a plan to the image it was made from.
#include "ImagePlan.h"

namespace Tupsim {

Outcome applyPlan(EepromImage& image, const ImagePlan& plan) {
    if (!plan.ok())
        return plan.outcome;
    if (plan.replace.isEmpty())
        return Outcome::success();
    if (!image.chainBroken())
        return image.replaceBlocks(plan.replace);
    // A repair before the break: the walk must find the same blocks at the same offsets again.
    QByteArray bytes = image.bytes();
    for (auto it = plan.replace.begin(); it != plan.replace.end(); ++it) {
        if (it.key() < 0 || it.key() >= image.blockCount() || image.block(it.key()).isEnd)
            return Outcome::failure(ResultCode::UnknownBlock,
                                    QStringLiteral("there is no data block %1").arg(it.key()));
        const ImageBlock& entry = image.block(it.key());
        if (it.value().size() != entry.size || it.value().left(4) != bytes.mid(entry.offset, 4))
            return Outcome::failure(ResultCode::ChainBroken, QStringLiteral("the chain is broken"));
        bytes.replace(entry.offset, entry.size, it.value());
    }
    image = EepromImage::fromBytes(bytes, image.chainStart());
    return Outcome::success();
}

} // namespace Tupsim
