// Typed CLI arguments: GVH_CHECK_ARG of every kind with bounds and outputs
// of the kind's type (or none), the single checkers, and the name checks.
#include "gvutil/settext.h"
#include "support/fuzz_support.h"

#include <algorithm>
#include <cstring>

namespace {

using gvfuzz::Exact;

// The output of each kind, exactly: a 32-bit word, a prefix, six bytes.
std::size_t output_size(int kind) {
    switch (kind) {
    case GVH_ARG_IP_PREFIX:
        return sizeof(gvh_ip_prefix);
    case GVH_ARG_MAC_ADDR:
        return 6;
    default:
        return sizeof(uint32_t);
    }
}

// How GVH_CHECK_ARG is called, taken from the input before the text.
struct Call {
    int kind;
    uint32_t low;
    uint32_t high;
    bool bounded;
    bool with_output;
    bool own_message;
};

Call take_call(FuzzedDataProvider &in) {
    return {in.ConsumeIntegralInRange(-1, 5),
            in.ConsumeIntegral<uint32_t>(),
            in.ConsumeIntegral<uint32_t>(),
            in.ConsumeBool(),
            in.ConsumeBool(),
            in.ConsumeBool()};
}

void check_argument(const Call &call, gvfuzz::Text &text) {
    const auto [kind, low, high, bounded, with_output, own_message] = call;
    Exact<uint32_t> min(1);
    Exact<uint32_t> max(1);
    min[0] = low;
    max[0] = high;
    // Kinds beyond the table are refused; give them the largest output.
    Exact<uint8_t> out(output_size(kind));
    const int result =
        GVH_CHECK_ARG(gvfuzz::shell(), kind, text.c_str(), bounded ? min.data() : nullptr,
                      bounded ? max.data() : nullptr, with_output ? out.data() : nullptr,
                      own_message ? "Bad value" : nullptr);
    gvfuzz::check(result == 0 || result == -1, "an argument check answers neither 0 nor -1",
                  text.view());
    if (result == 0 && with_output && kind <= GVH_ARG_UINT) {
        uint32_t value = 0;
        std::memcpy(&value, out.data(), sizeof value);
        gvfuzz::check(value >= low && value <= high, "a checked value outside its bounds",
                      text.view());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    FuzzedDataProvider in(data, size);
    const int which = in.ConsumeIntegralInRange(0, 2);
    const Call call = take_call(in);
    const int cut = in.ConsumeIntegralInRange(-1, 64);
    gvfuzz::Text text = gvfuzz::rest_as_text(in);
    if (which == 0) {
        check_argument(call, text);
        return 0;
    }
    if (which == 1) {
        // A bound prints into a buffer of the longest int text.
        Exact<uint32_t> value(1);
        std::memcpy(value.data(), text.c_str(), std::min<std::size_t>(text.size(), 4));
        Exact<char> printed(sizeof "-2147483648");
        (void)int2str(value.data(), printed.data());
        (void)uint2str(value.data(), printed.data());
        return 0;
    }
    const int length = static_cast<int>(text.size());
    (void)check_valid_name(text.c_str(), cut < length ? cut : length);
    (void)check_alphanum(text.c_str());
    (void)check_numeric(text.c_str());
    return 0;
}
