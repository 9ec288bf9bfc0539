#include "zntopo/platform/tv/MsgCatalogue.h"

#include <mutex>
#include <vector>

namespace {

struct Known {
  std::mutex mutex;
  std::vector<TvMsgState*> states;
};

Known& known() {
  static auto& all = *new Known();
  return all;
}

}  // namespace

extern "C" void ____msg_register_first(TvMsgState* state) {
  const std::lock_guard<std::mutex> hold(known().mutex);
  known().states.push_back(state);
}

void tvReopenMessageCatalogues() {
  const std::lock_guard<std::mutex> hold(known().mutex);
  for (TvMsgState* const state : known().states) state->store(kTvMsgReopen);
}
