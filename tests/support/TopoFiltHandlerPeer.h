#pragma once

#include "zntopo/filter/TopoFiltHandler.h"

namespace zntopo {

/// Expands the references of a handler's filters, without a document.
struct TopoFiltHandlerPeer {
  static int expand(TopoFiltHandler& handler, TvXplMsg::MessageList_t& list) {
    return handler.SubstituteStringFiltMap(list, "#");
  }
};

}  // namespace zntopo
