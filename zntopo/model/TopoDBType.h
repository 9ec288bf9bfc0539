#pragma once

namespace zntopo {

/// Which of the store's two table sets an object or a query belongs to.
enum TopoDBType : int {
  ActiveDB = 0,   ///< the tables that applications read
  WorkingDB = 1,  ///< the tables that a discovery is building
};

}  // namespace zntopo
