// One slot/port item of the operator's text ("1/3", "GE1/3", "t/2", "CG2").
#pragma once

#include "sys/items.h"

#include <string_view>

namespace gv::cli {

// Item text with its slot renumbered: "%d/%d" with a non-zero port gets the
// slot converted (user to real, or real to user); anything else (t/2, an
// interface name, a zero port) is copied unchanged.
void user_slot_text_to_real(std::string_view item, sys::ItemText &dest) noexcept;
void real_slot_text_to_user(std::string_view item, sys::ItemText &dest) noexcept;

// A trunk item names a group of the logical slot: t/N as the operator types
// it, or a channel-group name.
bool is_trunk_item(std::string_view item) noexcept;

} // namespace gv::cli
