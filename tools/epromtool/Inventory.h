// epromtool inventory: one row per module image, as text, CSV or JSON.
#pragma once

#include <QStringList>

namespace epromtool {

int runInventory(const QStringList& arguments);

} // namespace epromtool
