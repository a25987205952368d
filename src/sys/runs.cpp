#include "sys/runs.h"

#include <charconv>

namespace gv::sys {

void RunText::open(std::string_view member) noexcept {
    if (runs_++ > 0) {
        append(",");
    }
    append(member);
}

void RunText::close(std::string_view member) noexcept {
    append("-");
    append(member);
}

Decimal::Decimal(long long value) noexcept {
    const auto result = std::to_chars(text_, text_ + sizeof text_, value);
    length_ = static_cast<std::size_t>(result.ptr - text_);
}

} // namespace gv::sys
