#include "cli/run_text.h"

#include "gvutil/cli.h"
#include "gvutil/model.h"

#include <cstdlib>

namespace gv::cli {

sys::ConvertedText port_text(int pnum) noexcept {
    return sys::ConvertedText(pnum, sputil_mk_string_from_int_port);
}

sys::ConvertedText gem_port_text(int index, int per) noexcept {
    return sys::ConvertedText(index, [per](int member, char *dest, int size) noexcept {
        sputil_mk_string_from_int_gemport(member, dest, size, per);
    });
}

std::size_t write_port_list(std::span<uint32_t> pnums, char *out, std::size_t capacity) noexcept {
    std::qsort(pnums.data(), pnums.size(), sizeof(uint32_t), compare_port);
    sys::RunText text(out, capacity);
    write_runs(std::span<const uint32_t>(pnums), sys::kConsecutive, port_text, text);
    return text.length();
}

std::size_t write_bridge_list(std::span<const uint16_t> ids, char *out,
                              std::size_t capacity) noexcept {
    sys::RunText text(out, capacity);
    // The two forms differ on purpose: a lone VLAN is named, a list is not.
    if (ids.size() == 1) {
        text.append(sys::bridge_name(ids.front()));
    } else {
        write_runs(
            ids, sys::kConsecutive, [](int id) noexcept { return sys::Decimal(id); }, text);
    }
    return text.length();
}

} // namespace gv::cli
