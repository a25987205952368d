// Id, port and bridge list text read into range lists, and the element
// helpers the shell calls on its own.
#include "range/range_lists.h"
#include "support/heap_watch.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <utility>

namespace {

using rangetest::RangeList;
using rangetest::spans_of;

using Case = std::pair<const char *, const char *>; // text, spans ("" when refused)

template <std::size_t N>
void expect_lists(id_range *(*parser)(const char *), const Case (&cases)[N]) {
    gvtest::HeapWatch heap;
    for (const auto &[text, spans] : cases) {
        EXPECT_EQ(spans_of(RangeList(parser(text)).get()), spans) << (text ? text : "NULL");
    }
    EXPECT_EQ(heap.held(), 0);
}

// 65535 is never an id; 65536 is cut to 16 bits; 15 digits read as the 32-bit
// atol reads them; an element of 16 characters does not fit; an empty
// element anywhere refuses the whole list.
TEST(IdList, ReadsRunsAndRefusesMalformedText) {
    const Case ids[] = {{"1-5,8", "1-5 8"}, {"2,1", "2 1"}, {"3-3", "3"}, {"5-1", ""},
                        {"1,,2", ""},       {",1", ""},     {"1,", ""},   {"1-2-3", ""},
                        {"-1", ""},         {"1-", ""},     {"", ""},     {"1,a", ""},
                        {nullptr, ""}};
    expect_lists(get_id_list, ids);
    const Case numbers[] = {{"65534", "65534"},       {"65535", ""},
                            {"65536", "0"},           {"999999999999999", ""},
                            {"000000000000005", "5"}, {"0000000000000005", ""}};
    expect_lists(get_id_list, numbers);
    const Case ports[] = {{"1-4,7", "1-4 7"}, {"ge1", ""}, {nullptr, ""}};
    expect_lists(get_port_list_br, ports);
    // "br" alone is bridge 0.
    const Case bridges[] = {{"default", "1"},       {"br3-br5", "3-5"}, {"default-br4", "1-4"},
                            {"3-br5,br9", "3-5 9"}, {"defaults", "1"},  {"br", "0"},
                            {"br5-3", ""},          {"brx", ""},        {"vlan5", ""},
                            {"br3,,br4", ""},       {"br65535", ""}};
    expect_lists(get_br_list_br, bridges);
}

TEST(IdList, AllocationFailureAtAnyNodeFreesTheWholeList) {
    gvtest::HeapWatch heap;
    for (long successes = 0; successes < 3; ++successes) {
        gvtest::HeapWatch::fail_after(successes);
        EXPECT_EQ(get_br_list_br("1-5,br8,default"), nullptr) << successes;
        EXPECT_EQ(heap.held(), 0) << successes;
    }
    gvtest::HeapWatch::fail_after(3);
    EXPECT_EQ(spans_of(RangeList(get_br_list_br("1-5,br8,default")).get()), "1-5 8 1");
}

TEST(ElementText, GetRangeAndGetIdDataCopyOneElement) {
    const std::string fits = std::string(15, '7') + ",2";
    const std::string too_long = std::string(16, '7') + ",2";
    const std::tuple<const char *, const char *, std::size_t> ranges[] = {
        {"12,34", "12", 3},
        {"12", "12", 2},
        {",5", "", 1},
        {fits.c_str(), "777777777777777", 16},
        {too_long.c_str(), "", 17}};
    for (const auto &[text, element, consumed] : ranges) {
        char out[GV_RANGE_ELEMENT_SIZE] = "junk";
        EXPECT_EQ(get_range(text, out), text + consumed) << text;
        EXPECT_STREQ(out, element) << text;
    }
    char out[GV_RANGE_ELEMENT_SIZE] = "junk";
    EXPECT_EQ(get_range(nullptr, out), nullptr);
    EXPECT_STREQ(out, "");
    const std::tuple<const char *, const char *, const char *> elements[] = {
        {"3-7", "3", "7"}, {"15", "15", ""}, {"-7", "", "7"}, {"br3-br5", "br3", "br5"}};
    for (const auto &[element, copied, next] : elements) {
        const id_data_pos pos = get_id_data(element, out);
        EXPECT_STREQ(out, copied) << element;
        EXPECT_EQ(pos.out_end, out + std::string(copied).size()) << element;
        EXPECT_STREQ(pos.next, next) << element;
    }
}

TEST(ElementText, DigitPredicates) {
    const std::tuple<const char *, int, int> texts[] = {
        {"", 1, 1}, {"123", 1, 1}, {"1-3,5", 0, 1}, {"12a", 0, 0}, {"1 2", 0, 0}, {nullptr, 0, 0}};
    for (const auto &[text, all_num, all_num_list] : texts) {
        EXPECT_EQ(is_all_num(text), all_num) << (text ? text : "NULL");
        EXPECT_EQ(is_all_num_list(text), all_num_list) << (text ? text : "NULL");
    }
    const std::tuple<const char *, long, long, int> ranges[] = {
        {"5", 1, 10, 1}, {"1", 1, 10, 1},    {"10", 1, 10, 1},
        {"0", 1, 10, 0}, {"11", 1, 10, 0},   {"-5", -10, 10, 0},
        {"", 0, 5, 1},   {nullptr, 0, 5, 0}, {"99999999999", 0, 2147483647, 1}};
    for (const auto &[text, low, high, inside] : ranges) {
        EXPECT_EQ(check_digit_range(text, low, high), inside) << (text ? text : "NULL");
    }
}

} // namespace
