// The text predicates every token parser builds on: is_digit, is_digit_minus
// and is_hex over the text's own length (or less), and stoi.
#include "gvutil/sys.h"
#include "support/fuzz_support.h"

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    FuzzedDataProvider in(data, size);
    // Callers pass the text's length; a shorter one looks at a prefix.
    const int cut = in.ConsumeIntegralInRange(-2, 300);
    gvfuzz::Text text = gvfuzz::rest_as_text(in);
    const int length = static_cast<int>(text.size());
    const int looked_at = cut < length ? cut : length;

    const int digits = is_digit(text.c_str(), length);
    const int digits_minus = is_digit_minus(text.c_str(), length);
    (void)is_digit(text.c_str(), looked_at);
    (void)is_digit_minus(text.c_str(), looked_at);
    const int hex = is_hex(text.c_str());
    const int value = stoi(text.c_str());

    const std::string_view input = text.view();
    gvfuzz::check(digits == 0 || digits_minus == 1, "a digit text fails is_digit_minus", input);
    gvfuzz::check(digits == 0 || hex == 1, "a digit text fails is_hex", input);
    gvfuzz::check(value >= -1, "stoi below -1", input);
    // stoi reads the first 279 characters only.
    if (value >= 0) {
        gvfuzz::check(length > 0 && is_digit(text.c_str(), std::min(length, 279)) == 1,
                      "stoi reads a text that is no number", input);
    }
    // Up to nine digits always fit an int.
    if (length > 0 && length <= 9 && digits == 1) {
        long expected = 0;
        for (char c : input) {
            expected = expected * 10 + (c - '0');
        }
        gvfuzz::check(value == expected, "stoi misreads a short number", input);
    }
    return 0;
}
