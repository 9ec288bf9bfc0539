#include "zntopo/notify/detail/EventWire.h"

#include <memory>

#include "zntopo/notify/TopologyNotificationFactory.h"

namespace zntopo::detail {

namespace {

constexpr int kTextSize = 2048;

void read(const Position& position, const SNMPVarBind& variable, WireValues& values) {
  // The members of the union are told apart by the type alone.
  if (!position.isRead || variable.type != position.type || variable.val.string == nullptr) return;
  if (position.type == kIntegerType) {
    values.integer(position.slot) = static_cast<int>(*variable.val.integer);
    return;
  }
  // On the heap: the receiving thread has a small stack.
  const auto text = std::make_unique<char[]>(kTextSize);
  TopologyNotificationFactory::formatString(text.get(), kTextSize, variable.val.string,
                                            variable.val_len);
  values.text(position.slot) = text.get();
}

}  // namespace

WireValues readVariables(std::span<const Position> positions, const SNMPVarBind* variables) {
  WireValues values;
  // The platform's own variable comes first.
  const SNMPVarBind* variable = variables == nullptr ? nullptr : variables->next_variable;
  for (const Position& position : positions) {
    if (variable == nullptr) break;
    read(position, *variable, values);
    variable = variable->next_variable;
  }
  return values;
}

}  // namespace zntopo::detail
