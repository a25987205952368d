// Reader of chassis descriptions: "key value..." lines, '#' starts a comment.
#include "chassis_desc.h"
#include "chassis_rules.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>

namespace gvsim {
namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string_view trim(std::string_view text) {
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::vector<std::string_view> split_words(std::string_view text) {
    std::vector<std::string_view> words;
    while (!(text = trim(text)).empty()) {
        const auto end = std::min(text.find_first_of(kBlanks), text.size());
        words.push_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return words;
}

struct Line {
    int number = 0;
    std::string_view key;
    std::string_view rest; // everything after the key
    std::vector<std::string_view> values;
};

class Parser;

struct IntKey {
    std::string_view key;
    int ChassisDesc::*field;
    int low;
    int high;
};

struct TextKey {
    std::string_view key;
    std::string ChassisDesc::*field;
    std::size_t max;
    bool words; // the value may hold blanks
};

struct OtherKey {
    std::string_view key;
    bool (Parser::*apply)(const Line &);
    bool repeats;
};

constexpr IntKey kIntKeys[] = {
    {"model_code", &ChassisDesc::model_code, 0, 255},
    {"l3", &ChassisDesc::l3, 0, 255},
    {"dual_os", &ChassisDesc::dual_os, 0, 255},
    {"default_os", &ChassisDesc::default_os, 1, 2},
    {"slots", &ChassisDesc::slot_count, 0, kMaxSlots},
    {"interlink", &ChassisDesc::interlink, 0, kMaxPorts},
    {"logical_ports", &ChassisDesc::logical_ports, 0, kMaxPorts},
    {"channel_groups", &ChassisDesc::channel_groups, 0, kMaxPorts},
    {"sfu_board_id", &ChassisDesc::sfu_board_id, 1, 2},
    {"config_version", &ChassisDesc::config_version, 0, 255},
    {"chassis_type", &ChassisDesc::chassis_type, -1, 255},
};

constexpr TextKey kTextKeys[] = {
    {"model_name", &ChassisDesc::model_name, kModelNameMax, true},
    {"real_model_name", &ChassisDesc::real_model_name, kRealModelNameMax, false},
    {"system_model", &ChassisDesc::system_model, kInfoTextMax, true},
    {"hw_revision", &ChassisDesc::hw_revision, kInfoTextMax, false},
    {"sw_version", &ChassisDesc::sw_version, kInfoTextMax, false},
    {"bl_version", &ChassisDesc::bl_version, kInfoTextMax, false},
    {"serial", &ChassisDesc::serial, kInfoTextMax, false},
};

class Parser {
  public:
    Parser(ChassisDesc &out, std::string &error) : out_(out), error_(error) {}

    bool line(const Line &line);
    bool finish();

    bool slot(const Line &line);
    bool group(const Line &line);
    bool fan(const Line &line) { return unit(line, out_.fans, kMaxFanSlots); }
    bool power(const Line &line) { return unit(line, out_.powers, kMaxPowerSlots); }
    bool mate(const Line &line);
    bool vendor_id(const Line &line);
    bool vendor_functions(const Line &line);

  private:
    bool dispatch(const Line &line);
    bool fail(int line, std::string_view message);
    bool arity(const Line &line, std::size_t count);
    bool number(const Line &line, std::string_view token, std::string_view what, long long low,
                long long high, long long &value);
    bool scalar(const Line &line, const IntKey &key);
    bool text(const Line &line, const TextKey &key);
    bool unit(const Line &line, std::vector<ShelfUnit> &units, int max_index);
    bool unit_state(const Line &line, std::string_view word, UnitState &state);
    int line_of(std::string_view key) const;

    ChassisDesc &out_;
    std::string &error_;
    std::vector<std::pair<std::string_view, int>> seen_; // key and the line that set it
    std::array<int, kMaxSlots> slot_lines_{};
    std::vector<int> group_lines_;
};

constexpr OtherKey kOtherKeys[] = {
    {"slot", &Parser::slot, true},
    {"group", &Parser::group, true},
    {"fan", &Parser::fan, true},
    {"power", &Parser::power, true},
    {"sfu_mate", &Parser::mate, false},
    {"vendor_id", &Parser::vendor_id, false},
    {"vendor_functions", &Parser::vendor_functions, false},
};

bool Parser::fail(int line, std::string_view message) {
    error_ = (line > 0 ? "line " + std::to_string(line) : std::string("end of description")) +
             ": " + std::string(message);
    return false;
}

int Parser::line_of(std::string_view key) const {
    for (const auto &[name, number] : seen_) {
        if (name == key) {
            return number;
        }
    }
    return 0;
}

bool Parser::line(const Line &line) {
    const bool repeats =
        std::any_of(std::begin(kOtherKeys), std::end(kOtherKeys),
                    [&](const OtherKey &key) { return key.repeats && key.key == line.key; });
    if (!repeats && line_of(line.key) != 0) {
        return fail(line.number, "duplicate key '" + std::string(line.key) + "'");
    }
    seen_.emplace_back(line.key, line.number);
    return dispatch(line);
}

bool Parser::dispatch(const Line &line) {
    for (const IntKey &key : kIntKeys) {
        if (key.key == line.key) {
            return scalar(line, key);
        }
    }
    for (const TextKey &key : kTextKeys) {
        if (key.key == line.key) {
            return text(line, key);
        }
    }
    for (const OtherKey &key : kOtherKeys) {
        if (key.key == line.key) {
            return (this->*key.apply)(line);
        }
    }
    return fail(line.number, "unknown key '" + std::string(line.key) + "'");
}

bool Parser::arity(const Line &line, std::size_t count) {
    if (line.values.size() == count) {
        return true;
    }
    return fail(line.number, "'" + std::string(line.key) + "' takes " + std::to_string(count) +
                                 (count == 1 ? " value" : " values"));
}

bool Parser::number(const Line &line, std::string_view token, std::string_view what, long long low,
                    long long high, long long &value) {
    const char *end = token.data() + token.size();
    const auto [stop, status] = std::from_chars(token.data(), end, value);
    if (status != std::errc() || stop != end) {
        return fail(line.number,
                    "bad number '" + std::string(token) + "' for " + std::string(what));
    }
    if (value < low || value > high) {
        return fail(line.number, std::string(what) + " " + std::to_string(value) +
                                     " out of range " + std::to_string(low) + ".." +
                                     std::to_string(high));
    }
    return true;
}

bool Parser::scalar(const Line &line, const IntKey &key) {
    long long parsed = 0;
    if (!arity(line, 1) || !number(line, line.values[0], key.key, key.low, key.high, parsed)) {
        return false;
    }
    out_.*key.field = static_cast<int>(parsed);
    return true;
}

bool Parser::text(const Line &line, const TextKey &key) {
    if (line.values.empty() || (!key.words && line.values.size() != 1)) {
        return arity(line, 1);
    }
    if (line.rest.size() > key.max) {
        return fail(line.number, std::string(key.key) + " longer than " + std::to_string(key.max) +
                                     " characters");
    }
    out_.*key.field = std::string(line.rest);
    return true;
}

bool Parser::slot(const Line &line) {
    long long slot = 0;
    long long card = 0;
    long long ports = 0;
    if (!arity(line, 3) || !number(line, line.values[0], "slot", 1, kMaxSlots, slot) ||
        !number(line, line.values[1], "card type", 0, 255, card) ||
        !number(line, line.values[2], "ports", 0, kMaxPorts, ports)) {
        return false;
    }
    int &seen = slot_lines_[static_cast<std::size_t>(slot - 1)];
    if (seen != 0) {
        return fail(line.number, "slot " + std::to_string(slot) + " given twice");
    }
    seen = line.number;
    out_.slots[static_cast<std::size_t>(slot - 1)] = {static_cast<int>(card),
                                                      static_cast<int>(ports)};
    return true;
}

bool Parser::group(const Line &line) {
    long long card = 0;
    long long ports = 0;
    if (!arity(line, 2) || !number(line, line.values[0], "card type", 0, 255, card) ||
        !number(line, line.values[1], "ports", 1, kMaxPorts, ports)) {
        return false;
    }
    out_.groups.push_back({static_cast<int>(card), static_cast<int>(ports)});
    group_lines_.push_back(line.number);
    return true;
}

bool Parser::unit_state(const Line &line, std::string_view word, UnitState &state) {
    if (word == "installed") {
        state = UnitState::installed;
    } else if (word == "absent") {
        state = UnitState::absent;
    } else if (word == "fault") {
        state = UnitState::fault;
    } else {
        return fail(line.number,
                    "state '" + std::string(word) + "' is not installed, absent or fault");
    }
    return true;
}

bool Parser::unit(const Line &line, std::vector<ShelfUnit> &units, int max_index) {
    long long index = 0;
    ShelfUnit unit;
    if (!arity(line, 2) || !number(line, line.values[0], line.key, 1, max_index, index) ||
        !unit_state(line, line.values[1], unit.state)) {
        return false;
    }
    unit.index = static_cast<int>(index);
    for (const ShelfUnit &other : units) {
        if (other.index == unit.index) {
            return fail(line.number,
                        std::string(line.key) + " " + std::to_string(index) + " given twice");
        }
    }
    units.push_back(unit);
    return true;
}

bool Parser::mate(const Line &line) {
    if (!arity(line, 1)) {
        return false;
    }
    if (line.values[0] != "present" && line.values[0] != "absent") {
        return fail(line.number, "sfu_mate is present or absent");
    }
    out_.sfu_mate = line.values[0] == "present";
    return true;
}

bool Parser::vendor_id(const Line &line) {
    long long value = 0;
    if (!arity(line, 1) || !number(line, line.values[0], line.key, 0, UINT32_MAX, value)) {
        return false;
    }
    out_.vendor_id = static_cast<std::uint32_t>(value);
    return true;
}

bool Parser::vendor_functions(const Line &line) {
    for (std::string_view token : line.values) {
        long long bit = 0;
        if (!number(line, token, "vendor function", 0, kVendorFunctionBits - 1, bit)) {
            return false;
        }
        out_.vendor_functions.set(static_cast<std::size_t>(bit));
    }
    return true;
}

bool Parser::finish() {
    for (std::string_view key :
         {"model_name", "real_model_name", "model_code", "slots", "logical_ports"}) {
        if (line_of(key) == 0) {
            return fail(0, "missing key '" + std::string(key) + "'");
        }
    }
    for (int s = 1; s <= kMaxSlots; ++s) {
        const int at = slot_lines_[static_cast<std::size_t>(s - 1)];
        const SlotDesc &slot = out_.slots[static_cast<std::size_t>(s - 1)];
        const std::string name = "slot " + std::to_string(s);
        if (at == 0) {
            continue;
        }
        if (s > out_.slot_count) {
            return fail(at, name + " beyond slots " + std::to_string(out_.slot_count));
        }
        if (slot.card_type == 0 && slot.ports != 0) {
            return fail(at, "empty " + name + " cannot have ports");
        }
        if (slot.card_type != 0 && slot.ports == 0) {
            return fail(at, name + " with card type " + std::to_string(slot.card_type) +
                                " needs ports");
        }
    }
    if (!group_lines_.empty() && out_.slot_count != 0) {
        return fail(group_lines_.front(), "port groups are for chassis without slots");
    }
    if (out_.channel_groups > out_.logical_ports) {
        return fail(line_of("channel_groups"),
                    "channel_groups " + std::to_string(out_.channel_groups) +
                        " exceeds logical_ports " + std::to_string(out_.logical_ports));
    }
    derive_port_kinds(out_);
    if (out_.kind[0] > kMaxPorts) {
        return fail(0, std::to_string(out_.kind[0]) + " ports exceed the " +
                           std::to_string(kMaxPorts) + "-port map");
    }
    if (line_of("system_model") == 0) {
        out_.system_model = out_.model_name;
    }
    if (line_of("chassis_type") == 0) {
        out_.chassis_type = chassis_type_for_model(out_.model_code);
    }
    auto by_index = [](const ShelfUnit &a, const ShelfUnit &b) { return a.index < b.index; };
    std::sort(out_.fans.begin(), out_.fans.end(), by_index);
    std::sort(out_.powers.begin(), out_.powers.end(), by_index);
    return true;
}

} // namespace

bool parse_chassis(std::string_view text, ChassisDesc &out, std::string &error) {
    out = ChassisDesc{};
    Parser parser(out, error);
    int number = 0;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        std::string_view raw = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        ++number;
        raw = trim(raw.substr(0, std::min(raw.find('#'), raw.size())));
        if (raw.empty()) {
            continue;
        }
        Line line;
        line.number = number;
        const auto key_end = std::min(raw.find_first_of(kBlanks), raw.size());
        line.key = raw.substr(0, key_end);
        line.rest = trim(raw.substr(key_end));
        line.values = split_words(line.rest);
        if (!parser.line(line)) {
            return false;
        }
    }
    return parser.finish();
}

} // namespace gvsim
