#pragma once

#include "player/host.h"

#include <cstdint>

namespace player
{

/// Frames of a 60 Hz display, counted from 0 when the host's clock started. Their instants are fixed, so that
/// the lengths of waits do not add up to a drift.
constexpr std::int64_t framesPerSecond = 60;

/// The frame shown at an instant.
std::int64_t frameAt(Instant when);

/// The instant at which a frame starts; frameAt() of it is the frame.
Instant startOfFrame(std::int64_t frame);

} // namespace player
