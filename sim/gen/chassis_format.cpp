// Canonical text of a description: every key once, in a fixed order, every slot listed.
#include "chassis_desc.h"

#include <utility>

namespace gvsim {
namespace {

const char *state_word(UnitState state) {
    switch (state) {
    case UnitState::installed:
        return "installed";
    case UnitState::fault:
        return "fault";
    case UnitState::absent:
        break;
    }
    return "absent";
}

class Writer {
  public:
    template <typename... Values> void line(std::string_view key, const Values &...values) {
        text_ += key;
        (append(values), ...);
        text_ += '\n';
    }
    void comment(std::string_view text) {
        text_ += "# ";
        text_ += text;
        text_ += '\n';
    }
    std::string take() { return std::move(text_); }

  private:
    void append(std::string_view value) {
        text_ += ' ';
        text_ += value;
    }
    void append(const char *value) { append(std::string_view(value)); }
    void append(const std::string &value) { append(std::string_view(value)); }
    void append(long long value) { append(std::string_view(std::to_string(value))); }
    void append(int value) { append(static_cast<long long>(value)); }
    void append(std::uint32_t value) { append(static_cast<long long>(value)); }

    std::string text_;
};

} // namespace

std::string format_chassis(const ChassisDesc &desc) {
    Writer out;
    out.comment("chassis " + desc.model_name + " (normalised)");
    std::string kinds = "port counts by kind:";
    for (std::size_t k = 0; k < desc.kind.size(); ++k) {
        kinds += " " + std::to_string(k) + "=" + std::to_string(desc.kind[k]);
    }
    out.comment(kinds);
    out.line("model_name", desc.model_name);
    out.line("real_model_name", desc.real_model_name);
    out.line("system_model", desc.system_model);
    out.line("model_code", desc.model_code);
    out.line("l3", desc.l3);
    out.line("dual_os", desc.dual_os);
    out.line("default_os", desc.default_os);
    out.line("slots", desc.slot_count);
    for (int s = 1; s <= desc.slot_count; ++s) {
        const SlotDesc &slot = desc.slots[static_cast<std::size_t>(s - 1)];
        out.line("slot", s, slot.card_type, slot.ports);
    }
    for (const PortGroup &group : desc.groups) {
        out.line("group", group.card_type, group.ports);
    }
    out.line("interlink", desc.interlink);
    out.line("logical_ports", desc.logical_ports);
    out.line("channel_groups", desc.channel_groups);
    out.line("sfu_board_id", desc.sfu_board_id);
    out.line("sfu_mate", desc.sfu_mate ? "present" : "absent");
    for (const ShelfUnit &fan : desc.fans) {
        out.line("fan", fan.index, state_word(fan.state));
    }
    for (const ShelfUnit &power : desc.powers) {
        out.line("power", power.index, state_word(power.state));
    }
    // Empty values cannot be written back; a description that never set them leaves them out.
    const std::pair<const char *, const std::string *> infos[] = {
        {"hw_revision", &desc.hw_revision},
        {"sw_version", &desc.sw_version},
        {"bl_version", &desc.bl_version},
        {"serial", &desc.serial},
    };
    for (const auto &[key, value] : infos) {
        if (!value->empty()) {
            out.line(key, *value);
        }
    }
    out.line("vendor_id", desc.vendor_id);
    if (desc.vendor_functions.any()) {
        std::string bits;
        for (std::size_t bit = 0; bit < desc.vendor_functions.size(); ++bit) {
            if (desc.vendor_functions.test(bit)) {
                bits += (bits.empty() ? "" : " ") + std::to_string(bit);
            }
        }
        out.line("vendor_functions", bits);
    }
    out.line("config_version", desc.config_version);
    out.line("chassis_type", desc.chassis_type);
    return out.take();
}

} // namespace gvsim
