#pragma once
// What a replay file may hold. A real replay stays far below each limit (its largest line is
// the create_world line of a 255 x 255 map, 65,025 letters; a whole replay of 32,767 events is
// a few megabytes), so a file past one was chosen by mistake: it fails at once instead of
// filling memory or keeping the window busy for minutes.
#include <cstddef>
#include <cstdint>

namespace trelvin {

// Positions are signed 16-bit, so the event list holds at most this many events.
inline constexpr int kMaxEvents = 32767;

// Bytes of one line, its line end not counted: sixteen times the longest real line.
inline constexpr std::size_t kMaxLineBytes = std::size_t{1} << 20;

// Bytes of a whole file: about twenty times the largest real replay.
inline constexpr std::uint64_t kMaxFileBytes = std::uint64_t{64} << 20;

}  // namespace trelvin
