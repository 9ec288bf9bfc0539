#pragma once

/// @file
/// The mark of what the shared library exports; everything else is hidden.
#define ZNTOPO_EXPORT __attribute__((visibility("default")))
