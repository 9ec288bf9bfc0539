#include "zntopo/core/Trace.h"

namespace zntopo {

// Constant-initialised, so usable at any time in the life of the process.
constinit const TvXplTrc::TraceWrapper_t topoSvcProcObj{"QRMRZTopology"};
constinit const TvXplTrc::TraceWrapper_t topoSvcOperationObj{"QRMRZTopology"};

}  // namespace zntopo
