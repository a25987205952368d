// BER integers, ours beside net-snmp's asn1 codec in one binary over one
// value set: encode, then decode of the same octets (the two encodings are
// identical). Prints the time ratio of each pair at the end.
#include "gvutil/ber.h"

// clang-format off
#include <net-snmp/net-snmp-config.h>
#include <net-snmp/library/asn1.h>
// clang-format on

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdio>
#include <map>
#include <random>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

constexpr std::size_t kValueCount = 4096;
constexpr std::size_t kRoom = 8;

// Widths drawn evenly from 1 to 32 bits, either sign: every octet count
// appears about as often as the others.
const std::vector<std::int32_t> &values() {
    static const std::vector<std::int32_t> set = [] {
        std::mt19937 random(0x6776b3e5);
        std::uniform_int_distribution<int> width(1, 32);
        std::vector<std::int32_t> out(kValueCount);
        for (auto &value : out) {
            const std::uint32_t raw = random() >> (32 - width(random));
            value = static_cast<std::int32_t>((raw & 1) != 0 ? ~raw : raw);
        }
        return out;
    }();
    return set;
}

struct Encoded {
    std::uint8_t octets[kRoom];
    std::int32_t size;
};

const std::vector<Encoded> &encodings() {
    static const std::vector<Encoded> set = [] {
        std::vector<Encoded> out(kValueCount);
        for (std::size_t i = 0; i < kValueCount; ++i) {
            std::int32_t remaining = kRoom;
            snmp_build_int(out[i].octets, &remaining, ASN_INTEGER, &values()[i], 4);
            out[i].size = static_cast<std::int32_t>(kRoom) - remaining;
        }
        return out;
    }();
    return set;
}

void encode_gvutil(benchmark::State &state) {
    std::uint8_t out[kRoom];
    for (auto _ : state) {
        for (const std::int32_t value : values()) {
            std::int32_t remaining = kRoom;
            benchmark::DoNotOptimize(snmp_build_int(out, &remaining, ASN_INTEGER, &value, 4));
            benchmark::ClobberMemory();
        }
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kValueCount));
}

void encode_netsnmp(benchmark::State &state) {
    u_char out[kRoom];
    for (auto _ : state) {
        for (const std::int32_t value : values()) {
            std::size_t remaining = kRoom;
            const long wide = value;
            benchmark::DoNotOptimize(
                asn_build_int(out, &remaining, ASN_INTEGER, &wide, sizeof wide));
            benchmark::ClobberMemory();
        }
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kValueCount));
}

void decode_gvutil(benchmark::State &state) {
    for (auto _ : state) {
        for (const Encoded &in : encodings()) {
            std::int32_t remaining = in.size;
            std::uint8_t type = 0;
            std::int32_t value = 0;
            benchmark::DoNotOptimize(snmp_parse_int(in.octets, &remaining, &type, &value, 4));
            benchmark::DoNotOptimize(value);
        }
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kValueCount));
}

void decode_netsnmp(benchmark::State &state) {
    // net-snmp's parser takes a writable cursor; it only reads through it.
    std::vector<Encoded> held = encodings();
    for (auto _ : state) {
        for (Encoded &in : held) {
            std::size_t remaining = static_cast<std::size_t>(in.size);
            u_char type = 0;
            long value = 0;
            benchmark::DoNotOptimize(
                asn_parse_int(in.octets, &remaining, &type, &value, sizeof value));
            benchmark::DoNotOptimize(value);
        }
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kValueCount));
}

// The console table as usual, then each operation's net-snmp CPU time over
// ours: above 1 means ours is faster. CPU time, since the wall clock of a
// shared build machine counts other processes too. Medians when repetitions
// are asked for.
class RatioReporter : public benchmark::ConsoleReporter {
  public:
    // Colours only on a terminal: a piped or saved run stays plain text.
    RatioReporter() : ConsoleReporter(isatty(STDOUT_FILENO) != 0 ? OO_ColorTabular : OO_Tabular) {}

    void ReportRuns(const std::vector<Run> &runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run &run : runs) {
            if (run.error_occurred) {
                continue;
            }
            // A run's aggregates follow its repetitions, so the median wins.
            if (run.run_type == Run::RT_Iteration ||
                (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median")) {
                times_[run.run_name.str()] = run.GetAdjustedCPUTime();
            }
        }
    }

    void print_ratios() const {
        for (const char *operation : {"encode", "decode"}) {
            const auto ours = times_.find(std::string(operation) + "/gvutil");
            const auto theirs = times_.find(std::string(operation) + "/net-snmp");
            if (ours == times_.end() || theirs == times_.end() || ours->second <= 0) {
                continue;
            }
            const double per_value = 1.0 / static_cast<double>(kValueCount);
            std::printf(
                "%s: gvutil %.2f ns/int, net-snmp %.2f ns/int (CPU), net-snmp/gvutil %.2f\n",
                operation, ours->second * per_value, theirs->second * per_value,
                theirs->second / ours->second);
        }
    }

  private:
    std::map<std::string, double> times_;
};

} // namespace

int main(int argc, char **argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RegisterBenchmark("encode/gvutil", encode_gvutil);
    benchmark::RegisterBenchmark("encode/net-snmp", encode_netsnmp);
    benchmark::RegisterBenchmark("decode/gvutil", decode_gvutil);
    benchmark::RegisterBenchmark("decode/net-snmp", decode_netsnmp);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.print_ratios();
    benchmark::Shutdown();
    return 0;
}
