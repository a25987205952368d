// Texts of single members of a set, as the range-text writers put them into
// runs: a port through one of the shell's converters, a bridge by its name.
#pragma once

#include "sys/items.h"
#include "sys/runs.h"

#include <string_view>

namespace gv::sys {

// A member's text written by a converter of the shell's kind
// (sputil_mk_string_from_int_port(member, dest, size)), in a 64-byte buffer
// that lives as long as the value.
class ConvertedText {
  public:
    static constexpr int kSize = 64;

    template <typename Convert> ConvertedText(int member, Convert convert) noexcept {
        text_[0] = '\0';
        convert(member, text_, kSize);
    }
    operator std::string_view() const noexcept { return text_; }
    const char *c_str() const noexcept { return text_; }

  private:
    char text_[kSize];
};

// A bridge as the operator names it: "default" for bridge 1, else "br<id>".
inline FixedText<16> bridge_name(int id) noexcept {
    FixedText<16> name(id == 1 ? "default" : "br");
    if (id != 1) {
        name.append(Decimal(id));
    }
    return name;
}

} // namespace gv::sys
