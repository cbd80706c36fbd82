#pragma once

#include "platform/DescriptorWatch.h"

#include <functional>
#include <optional>

namespace Tesselor {

/// Takes the signals by which a system or a terminal asks a program to end (SIGTERM, SIGHUP, SIGINT), so that it can
/// leave in order. A second one of a kind ends the process at once, for when the loop doesn't turn any more. At most
/// one exists.
class EndSignals {
public:
  /// `received` gets the signal's number, on the loop. A signal that whoever started the program has told it to ignore
  /// stays ignored.
  explicit EndSignals(std::function<void(int signal)> received);
  ~EndSignals();
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;

private:
  std::optional<DescriptorWatch> watch;
};

/// A write to a pipe that nobody reads, or beyond the largest size of a file, fails like any other from now on, where
/// it would have ended the process.
void TakeFailedWritesAsErrors();

/// Puts something in the place of each standard stream that the process was started without, or the first files that it
/// opens would take their numbers, and what is meant for standard error would stand in the log or in an asset. Writes
/// to such a stream fail.
void OccupyStandardDescriptors();

} // namespace Tesselor
