#pragma once

#include <string>

#include "tools/zntopo/Answer.h"
#include "zntopo/api/ZNTopoAPI.h"
#include "zntopo/platform/tvdbil/TvDbil.h"

namespace zntopo::tools {

/// Makes the store of a call the one of the process (TV_TOPO_STORE), if the call names one.
void chooseStore(const Context& context);

/// Opens the chosen store. Throws a Failure if that is not possible.
TvDbil::DbConnection_t openStore();
/// A store's name for people: the path, or the connection string with its password hidden.
std::string storeLabel(const TvDbil::DbSource_t& source);

/// What a store is opened for.
enum class Purpose { Reading, Writing };
/// The same, and a Failure for a store without tables, or one that can't be written to.
TvDbil::DbConnection_t openTopology(Purpose purpose = Purpose::Reading);

/// What a subcommand asks: the library on a store that was found to be there.
class Session {
 public:
  /// What the library loads together with nodes.
  enum class Load { NodesAlone, Everything };

  explicit Session(const Context& context, Load load = Load::Everything);

  ZNTopoAPI& api() { return *api_; }
  TvDbil::DbConnection_t& connection() { return connection_; }

 private:
  TvDbil::DbConnection_t connection_;
  ZNRefPtr<ZNTopoAPI> api_;
};

}  // namespace zntopo::tools
