// Slot/port range strings ("1/3-3/2") and FE/GE interface names ("GE105")
// as the configuration display reads them back.
#include "gvutil/cli.h"
#include "gvutil/model.h"
#include "gvutil/sys.h"
#include "sys/items.h"
#include "sys/operator_message.h"
#include "sys/scan.h"
#include "sys/text_builder.h"

#include <string_view>

namespace {

using gv::sys::ItemText;

// The text is read from a copy of this size; longer text is cut there.
using RangeText = gv::sys::FixedText<1024>;

// Ports a middle slot 0 (the switch-fabric unit) is taken to have.
constexpr int kFabricUnitPorts = 4;

struct Endpoint {
    int slot;
    int port;
};

// "S/P": the slot must be a number no higher than the chassis' slots; the
// port is not checked and is kept in 8 bits.
bool read_endpoint(std::string_view text, Endpoint &end) noexcept {
    const gv::sys::Halves halves = gv::sys::cut_at(text, '/');
    if (!halves.cut) {
        return false;
    }
    end.slot = stoi(ItemText(halves.left).c_str());
    end.port = static_cast<uint8_t>(gv::sys::read_int(halves.right));
    return end.slot >= 0 && end.slot <= get_slot_number();
}

slot_port_range make_range(int slot, int first_port, int last_port) noexcept {
    return {static_cast<uint16_t>(slot), static_cast<uint16_t>(first_port),
            static_cast<uint16_t>(last_port)};
}

} // namespace

int parse_slotif_range_string(cli_ctx *ctx, const char *text, slot_port_range *out) noexcept {
    if (text == nullptr || out == nullptr) {
        return -1;
    }
    const RangeText copy(text);
    int count = 0;
    const bool whole = gv::sys::for_each_element(copy.view(), [&](std::string_view item) noexcept {
        const gv::sys::Halves range = gv::sys::cut_at(item, '-');
        Endpoint start{};
        Endpoint end{};
        if (!read_endpoint(range.left, start) || (range.cut && !read_endpoint(range.right, end))) {
            return false;
        }
        if (!range.cut) {
            out[count++] = make_range(start.slot, start.port, start.port);
            return true;
        }
        for (int slot = start.slot; slot <= end.slot; ++slot) {
            int last_port = end.port;
            if (slot != end.slot) {
                // A middle slot ends where the range written before it ended;
                // the display code that reads these back relies on it.
                last_port =
                    slot == 0 ? kFabricUnitPorts : (count > 0 ? out[count - 1].last_port : 0);
            }
            out[count] = make_range(slot, slot == start.slot ? start.port : 1, last_port);
            ++count;
        }
        return true;
    });
    if (!whole) {
        gv::sys::say(ctx, "%% Invalid range.\n");
        return -1;
    }
    return count;
}

int get_slot_port_from_interface_name(const char *name, slot_port_pair *out) noexcept {
    if (name == nullptr || name[0] == '\0' || out == nullptr) {
        return -1;
    }
    const std::string_view text(name);
    constexpr std::size_t kShortestName = 5;
    if (text.size() < kShortestName || !(text.starts_with("FE") || text.starts_with("GE")) ||
        !gv::sys::all_digits(text.substr(2))) {
        return -2;
    }
    // The digits are slot and port run together: GE105 is slot 1, port 5.
    const int number = gv::sys::read_int(text.substr(2));
    out->slot = static_cast<uint8_t>(number / 100);
    out->port = static_cast<uint8_t>(number % 100);
    return 0;
}
