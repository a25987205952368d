// Runs of a list as command text ("GE1/1-GE1/4,GE2/3", "1-3,7"), shared by
// the exported builders and the grouped configuration commands, which write
// the same text into their bounded line buffers.
#pragma once

#include "sys/member_text.h"
#include "sys/runs.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace gv::cli {

// The shell's text of one port: its interface name, or its number on a
// chassis without slots.
sys::ConvertedText port_text(int pnum) noexcept;
// "mapper/port" of a GEM index, per GEM ports to a mapper.
sys::ConvertedText gem_port_text(int index, int per) noexcept;

// Writes the runs of values, in their own order, into text: a value continues
// a run when joins(previous, value) holds; each end through text_of.
template <typename T, typename Joins, typename TextOf>
void write_runs(std::span<const T> values, Joins joins, TextOf text_of,
                sys::RunText &text) noexcept {
    sys::for_each_list_run(values, joins, [&](sys::Run run) noexcept { text.write(run, text_of); });
}

// Port text of pnums, which are sorted in place first. Runs follow pnum
// order only, so one may cross from a slot into the next. Answers the length.
std::size_t write_port_list(std::span<uint32_t> pnums, char *out, std::size_t capacity) noexcept;

// VLAN text of ids in their own order: a single id by its bridge name
// ("default", "br5"), two or more as runs of bare numbers ("1-3,7").
std::size_t write_bridge_list(std::span<const uint16_t> ids, char *out,
                              std::size_t capacity) noexcept;

} // namespace gv::cli
