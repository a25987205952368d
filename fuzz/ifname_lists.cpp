// Lists of interface names: the operator's lists converted to internal ones
// and back, the sort, the slot translations, the slot/port ranges, the
// chassis check, the range line and the range prompt, on every chassis.
#include "gvutil/ifname.h"
#include "support/fuzz_support.h"

#include <cstring>
#include <vector>

namespace {

using gvfuzz::Exact;
using gvfuzz::Text;

// Output sizes of the contracts.
constexpr std::size_t kConvertedSize = 256;
constexpr std::size_t kTranslatedSize = 128;
constexpr std::size_t kNormalisedSize = 67;
// The longest "%d/%d" of a range prompt, and its comma.
constexpr std::size_t kPromptPortText = 24;

void convert(Text &word, Text *list, bool user) {
    Exact<char> out(kConvertedSize);
    (void)(user ? convert_user_interface_name(word.c_str(), list ? list->c_str() : nullptr,
                                              out.data())
                : convert_interface_name(word.c_str(), list ? list->c_str() : nullptr, out.data()));
}

// The sorted list holds normalised names (at most 66 characters each) and a
// comma between two.
void sort(Text &names, bool user) {
    Exact<char> out(gvfuzz::count_items(names.view()) * kNormalisedSize + 1);
    const int result = user ? de_convert_user_inter_name_sort(names.c_str(), out.data())
                            : de_convert_inter_name_sort(names.c_str(), out.data());
    if (result != 0) {
        gvfuzz::check(out[0] == '\0', "a refused sort wrote its output", names.view());
    }
}

void translate(Text &names, bool with_output) {
    Exact<char> out(kTranslatedSize);
    (void)convert_real_ifname_from_user_ifname(names.c_str(), out.data());
    (void)convert_user_ifname_from_real_ifname(names.c_str(), with_output ? out.data() : nullptr);
}

void check_list(Text &word, Text &list, int max) {
    int code = 7;
    const int answer = check_interface_list(list.c_str(), &code);
    gvfuzz::check((answer == 1 && code == 0) || (answer == 0 && code >= -5 && code <= -1),
                  "check_interface_list's answer and code disagree", list.view());
    Exact<char> out(max >= 0 ? static_cast<std::size_t>(max) + 1 : 0);
    (void)get_port_str_by_interface_name(word.c_str(), list.c_str(), max, out.data());
}

std::vector<ifrange_port_t> take_records(FuzzedDataProvider &in) {
    std::vector<ifrange_port_t> records(in.ConsumeIntegralInRange<std::size_t>(0, 12));
    for (ifrange_port_t &record : records) {
        record = {in.ConsumeIntegralInRange(-2, 40), in.ConsumeIntegralInRange(-2, 70), {1, 2}};
    }
    return records;
}

// The name grows by the text of each record.
void prompt(std::vector<ifrange_port_t> &records, Text &name) {
    const std::string text(name.view());
    Exact<char> buffer(text.size() + records.size() * kPromptPortText + 1);
    std::memcpy(buffer.data(), text.c_str(), text.size() + 1);
    get_interface_range_prompt_string(buffer.data(), static_cast<int>(records.size()),
                                      records.data());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    FuzzedDataProvider in(data, size);
    gvfuzz::use_chassis(in);
    const int which = in.ConsumeIntegralInRange(0, 8);
    const bool flag = in.ConsumeBool();
    const int max = in.ConsumeIntegralInRange(-1, 300);
    if (which == 8) {
        std::vector<ifrange_port_t> records = take_records(in);
        Text name = gvfuzz::rest_as_text(in);
        prompt(records, name);
        return 0;
    }
    // A type word up to a backslash and the character after it, then the list.
    Text word(in.ConsumeRandomLengthString(40));
    Text list = gvfuzz::rest_as_text(in);
    switch (which) {
    case 0:
    case 1:
        convert(word, flag ? &list : nullptr, which == 1);
        break;
    case 2:
    case 3:
        sort(list, which == 3);
        break;
    case 4:
        translate(list, flag);
        break;
    case 5: {
        Exact<char> out(list.size() + 1);
        (void)convert_multi_slotport_range_from_multi_ifname(list.c_str(), out.data());
        (void)is_sfu_real_slot(word.c_str(), list.c_str(), max % 65);
        break;
    }
    case 6:
        check_list(word, list, max);
        break;
    default:
        (void)get_interface_range_string_for_run_config_from_ifranstr(list.c_str());
        break;
    }
    return 0;
}
