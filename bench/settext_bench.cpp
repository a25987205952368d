// VLAN sets as range text, both ways, beside hwloc's bitmap lists doing the
// same work on the same ids: the shell prints and reads these sets for every
// "show vlan" and every VLAN command, so they should cost what copying the
// text costs. After the runs the ratio gvutil/hwloc of each pair is printed.
#include "gvutil/settext.h"
#include "support/chassis_root.h"

#include <benchmark/benchmark.h>
#include <hwloc.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace {

using IdSet = std::array<uint32_t, GV_ID_SET_WORDS>;
constexpr int kHighestId = GV_ID_SET_MAX_ID;
constexpr std::size_t kTextSize = 20000; // the longest list of 4094 ids is 17,000 characters

// The sets measured, all over ids 1..4094.
enum Shape { kReference, kDense, kSparse };
constexpr const char *kShapeNames[] = {"vlans1793", "dense", "sparse"};

std::vector<int> members_of(Shape shape) {
    std::vector<int> ids;
    if (shape == kReference) {
        // Runs of 1-6 VLANs with gaps of 1-8, as a provisioned chassis holds
        // them, cut at 1,793 members.
        std::mt19937 rng(1793);
        for (int id = 1; id <= kHighestId && ids.size() < 1793;) {
            const int run = static_cast<int>(rng() % 6) + 1;
            for (int k = 0; k < run && id <= kHighestId && ids.size() < 1793; ++k) {
                ids.push_back(id++);
            }
            id += static_cast<int>(rng() % 8) + 1;
        }
    }
    for (int id = 1; shape == kDense && id <= kHighestId; ++id) {
        if (id % 97 != 0) {
            ids.push_back(id); // long runs
        }
    }
    for (int id = 1; shape == kSparse && id <= kHighestId; id += 5) {
        ids.push_back(id); // lone members only
    }
    return ids;
}

// One set in both libraries' forms, with each library's own text of it.
struct Both {
    IdSet ids{};
    hwloc_bitmap_t bitmap = hwloc_bitmap_alloc();
    std::string text;
    std::string hwloc_text;

    explicit Both(Shape shape) {
        for (int id : members_of(shape)) {
            set(ids.data(), id - 1);
            hwloc_bitmap_set(bitmap, static_cast<unsigned>(id));
        }
        std::vector<char> out(kTextSize);
        vlanset2str(out.data(), kHighestId, ids.data());
        text = out.data();
        hwloc_bitmap_list_snprintf(out.data(), out.size(), bitmap);
        hwloc_text = out.data();
    }
    ~Both() { hwloc_bitmap_free(bitmap); }
    Both(const Both &) = delete;
    Both &operator=(const Both &) = delete;
};

const Both &set_of(int shape) {
    static const Both sets[] = {Both(kReference), Both(kDense), Both(kSparse)};
    return sets[shape];
}

void label(benchmark::State &state) {
    state.SetLabel(kShapeNames[state.range(0)]);
}

void FormatGvutil(benchmark::State &state) {
    const Both &set = set_of(static_cast<int>(state.range(0)));
    std::vector<char> out(kTextSize);
    for (auto _ : state) {
        benchmark::DoNotOptimize(vlanset2str(out.data(), kHighestId, set.ids.data()));
        benchmark::ClobberMemory();
    }
    if (set.text != out.data()) {
        state.SkipWithError("gvutil's text changed");
    }
    label(state);
}

void FormatHwloc(benchmark::State &state) {
    const Both &set = set_of(static_cast<int>(state.range(0)));
    std::vector<char> out(kTextSize);
    for (auto _ : state) {
        benchmark::DoNotOptimize(hwloc_bitmap_list_snprintf(out.data(), out.size(), set.bitmap));
        benchmark::ClobberMemory();
    }
    label(state);
}

void ParseGvutil(benchmark::State &state) {
    const Both &set = set_of(static_cast<int>(state.range(0)));
    IdSet ids{};
    for (auto _ : state) {
        benchmark::DoNotOptimize(getbrset(set.text.c_str(), kHighestId, ids.data()));
        benchmark::ClobberMemory();
    }
    if (ids != set.ids) {
        state.SkipWithError("gvutil read another set");
    }
    label(state);
}

void ParseHwloc(benchmark::State &state) {
    const Both &set = set_of(static_cast<int>(state.range(0)));
    hwloc_bitmap_t bitmap = hwloc_bitmap_alloc();
    for (auto _ : state) {
        benchmark::DoNotOptimize(hwloc_bitmap_list_sscanf(bitmap, set.hwloc_text.c_str()));
        benchmark::ClobberMemory();
    }
    if (!hwloc_bitmap_isequal(bitmap, set.bitmap)) {
        state.SkipWithError("hwloc read another set");
    }
    hwloc_bitmap_free(bitmap);
    label(state);
}

BENCHMARK(FormatGvutil)->DenseRange(kReference, kSparse);
BENCHMARK(FormatHwloc)->DenseRange(kReference, kSparse);
BENCHMARK(ParseGvutil)->DenseRange(kReference, kSparse);
BENCHMARK(ParseHwloc)->DenseRange(kReference, kSparse);

// The console report, remembering each run's CPU time per call by name.
// With --benchmark_repetitions the ratios use each name's best run (other
// processes only ever add time), and --benchmark_enable_random_interleaving
// spreads both peers over the same stretch of a busy machine.
class RatioReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run> &runs) override {
        for (const Run &run : runs) {
            if (run.run_type == Run::RT_Iteration && !run.error_occurred) {
                times_[run.benchmark_name()].push_back(run.GetAdjustedCPUTime());
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }
    // gvutil's time over hwloc's for each set: at most 0.5 is the goal.
    void print_ratios() const {
        std::printf("\ngvutil / hwloc (best CPU time per call):\n");
        for (const char *what : {"Format", "Parse"}) {
            for (int shape = kReference; shape <= kSparse; ++shape) {
                const std::string arg = "/" + std::to_string(shape);
                const double ours = best(what + std::string("Gvutil") + arg);
                const double theirs = best(what + std::string("Hwloc") + arg);
                if (ours > 0 && theirs > 0) {
                    std::printf("  %-6s %-9s %.2fx\n", what, kShapeNames[shape], ours / theirs);
                }
            }
        }
    }

  private:
    double best(const std::string &name) const {
        const auto found = times_.find(name);
        return found == times_.end()
                   ? 0
                   : *std::min_element(found->second.begin(), found->second.end());
    }
    std::map<std::string, std::vector<double>> times_;
};

} // namespace

int main(int argc, char **argv) {
    const gvtest::ChassisRoot root{"k3100x"}; // without slots a bridge token is a number
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.print_ratios();
    benchmark::Shutdown();
    return 0;
}
