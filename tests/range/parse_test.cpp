// Id, port and bridge list text read into range lists, and the element
// helpers the shell calls on its own.
#include "range/range_lists.h"
#include "support/heap_watch.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using rangetest::RangeList;
using rangetest::Spans;
using rangetest::spans_of;

struct Case {
    const char *text;
    Spans spans; // empty: the parser answers null
};

void expect_lists(id_range *(*parser)(const char *), std::initializer_list<Case> cases) {
    gvtest::HeapWatch heap;
    for (const Case &c : cases) {
        EXPECT_EQ(spans_of(RangeList(parser(c.text)).get()), c.spans) << c.text;
    }
    EXPECT_EQ(heap.held(), 0);
}

TEST(IdList, ReadsRunsAndRefusesMalformedText) {
    // 65535 is never an id; 65536 is cut to 16 bits; 15 digits read as the
    // 32-bit atol reads them; an element of 16 characters does not fit.
    expect_lists(get_id_list, {{"1-5,8", {{1, 5}, {8, 8}}},
                               {"2,1", {{2, 2}, {1, 1}}},
                               {"3-3", {{3, 3}}},
                               {"5-1", {}},
                               {"1,,2", {}},
                               {",1", {}},
                               {"1,", {}},
                               {"1-2-3", {}},
                               {"-1", {}},
                               {"1-", {}},
                               {"", {}},
                               {"1,a", {}},
                               {"65534", {{65534, 65534}}},
                               {"65535", {}},
                               {"65536", {{0, 0}}},
                               {"999999999999999", {}},
                               {"000000000000005", {{5, 5}}},
                               {"0000000000000005", {}},
                               {nullptr, {}}});
    expect_lists(get_port_list_br, {{"1-4,7", {{1, 4}, {7, 7}}}, {"ge1", {}}, {nullptr, {}}});
}

TEST(BridgeList, TakesBridgeNamesAndDigits) {
    expect_lists(get_br_list_br, {{"default", {{1, 1}}},
                                  {"br3-br5", {{3, 5}}},
                                  {"default-br4", {{1, 4}}},
                                  {"3-br5,br9", {{3, 5}, {9, 9}}},
                                  {"defaults", {{1, 1}}},
                                  {"br", {{0, 0}}},
                                  {"br5-3", {}},
                                  {"brx", {}},
                                  {"vlan5", {}},
                                  {"br3,,br4", {}},
                                  {"br65535", {}}});
}

TEST(IdList, AllocationFailureAtAnyNodeFreesTheWholeList) {
    gvtest::HeapWatch heap;
    for (long successes = 0; successes < 3; ++successes) {
        gvtest::HeapWatch::fail_after(successes);
        EXPECT_EQ(get_br_list_br("1-5,br8,default"), nullptr) << successes;
        EXPECT_EQ(heap.held(), 0) << successes;
    }
    gvtest::HeapWatch::fail_after(3);
    EXPECT_EQ(spans_of(RangeList(get_br_list_br("1-5,br8,default")).get()),
              (Spans{{1, 5}, {8, 8}, {1, 1}}));
}

TEST(ElementText, GetRangeAndGetIdDataCopyOneElement) {
    const std::string fits = std::string(15, '7') + ",2";
    const std::string too_long = std::string(16, '7') + ",2";
    struct RangeCase {
        const char *text;
        const char *element;
        std::size_t consumed;
    };
    for (const RangeCase c :
         {RangeCase{"12,34", "12", 3}, RangeCase{"12", "12", 2}, RangeCase{",5", "", 1},
          RangeCase{fits.c_str(), "777777777777777", 16}, RangeCase{too_long.c_str(), "", 17}}) {
        char out[GV_RANGE_ELEMENT_SIZE] = "junk";
        EXPECT_EQ(get_range(c.text, out), c.text + c.consumed) << c.text;
        EXPECT_STREQ(out, c.element) << c.text;
    }
    char out[GV_RANGE_ELEMENT_SIZE] = "junk";
    EXPECT_EQ(get_range(nullptr, out), nullptr);
    EXPECT_STREQ(out, "");
    for (const auto &[element, copied, next] : {std::tuple{"3-7", "3", "7"},
                                                {"15", "15", ""},
                                                {"-7", "", "7"},
                                                {"br3-br5", "br3", "br5"}}) {
        const id_data_pos pos = get_id_data(element, out);
        EXPECT_STREQ(out, copied) << element;
        EXPECT_EQ(pos.out_end, out + std::string(copied).size()) << element;
        EXPECT_STREQ(pos.next, next) << element;
    }
}

TEST(ElementText, DigitPredicates) {
    for (const auto &[text, all_num, all_num_list] :
         {std::tuple{"", 1, 1}, {"123", 1, 1}, {"1-3,5", 0, 1}, {"12a", 0, 0}, {"1 2", 0, 0}}) {
        EXPECT_EQ(is_all_num(text), all_num) << text;
        EXPECT_EQ(is_all_num_list(text), all_num_list) << text;
    }
    EXPECT_EQ(is_all_num(nullptr) + is_all_num_list(nullptr), 0);
    for (const auto &[text, low, high, inside] : {std::tuple{"5", 1L, 10L, 1},
                                                  {"1", 1L, 10L, 1},
                                                  {"10", 1L, 10L, 1},
                                                  {"0", 1L, 10L, 0},
                                                  {"11", 1L, 10L, 0},
                                                  {"-5", -10L, 10L, 0},
                                                  {"", 0L, 5L, 1},
                                                  {nullptr, 0L, 5L, 0},
                                                  {"99999999999", 0L, 2147483647L, 1}}) {
        EXPECT_EQ(check_digit_range(text, low, high), inside) << (text ? text : "(null)");
    }
}

} // namespace
