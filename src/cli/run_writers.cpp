// One run of a list written as the builders write it: "first," or
// "first-last," at the caller's position.
#include "cli/run_text.h"
#include "gvutil/cli.h"

namespace {

template <typename TextOf> int write_run(char *dest, int first, int last, TextOf text_of) noexcept {
    if (dest == nullptr) {
        return 0;
    }
    gv::sys::RunText text(dest);
    text.write(gv::sys::Run{first, last}, text_of);
    text.append(",");
    return static_cast<int>(text.length());
}

} // namespace

int get_cmd_string(const uint32_t *first, const uint32_t *last, char *dest) noexcept {
    if (first == nullptr || last == nullptr) {
        return 0;
    }
    return write_run(dest, static_cast<int>(*first), static_cast<int>(*last), gv::cli::port_text);
}

int get_cmd_gemport_string(const uint32_t *first, const uint32_t *last, char *dest,
                           int per) noexcept {
    if (first == nullptr || last == nullptr) {
        return 0;
    }
    return write_run(dest, static_cast<int>(*first), static_cast<int>(*last),
                     [per](int index) noexcept { return gv::cli::gem_port_text(index, per); });
}

int get_onu_cmd_string(const uint8_t *first, const uint8_t *last, char *dest) noexcept {
    if (first == nullptr || last == nullptr) {
        return 0;
    }
    return write_run(dest, *first, *last, [](int id) noexcept { return gv::sys::Decimal(id); });
}
