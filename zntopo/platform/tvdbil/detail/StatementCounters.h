#pragma once

namespace TvDbil::detail {

/// To be called when a driver is given something; StatementCount.h says what counts.
void countPrepared();
void countExecuted();
void countTransaction();

}  // namespace TvDbil::detail
