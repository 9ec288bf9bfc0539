#pragma once

namespace zntopo {

/// The namespace of filter documents.
inline constexpr const char* kTopologyFilterNamespace =
    "http://corvane.example/marlo/NetworkTopology/TopologyFilter";

}  // namespace zntopo
