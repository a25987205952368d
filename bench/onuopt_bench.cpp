// The ONU option store's cost per call: every access is a semaphore round
// trip (two for a per-ONU call, which reads the minimum ONU id first), alone
// and with a second process writing into the same store.
#include "gvutil/onuopt.h"
#include "support/chassis_root.h"
#include "support/ipc_namespace.h"

#include <benchmark/benchmark.h>

#include <csignal>
#include <cstdio>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int kPons = GV_OPT_FORMAT_PONS;
constexpr int kOnuIds = GV_OPT_FORMAT_MAX_ONU_ID; // ids 1..129

// A second process that rewrites descriptions all over the chassis while it
// lives (argument 1 of a benchmark); none for argument 0.
class Writer {
  public:
    explicit Writer(bool wanted) {
        if (!wanted) {
            return;
        }
        pid_ = fork();
        if (pid_ == 0) {
            for (unsigned n = 0;; ++n) {
                const int port = static_cast<int>(n % kPons) + 1;
                const int onu = static_cast<int>(n / kPons % kOnuIds) + 1;
                gv_opt_format_set_onu_description(port, onu, "written by the other process", 28);
            }
        }
    }
    ~Writer() {
        if (pid_ > 0) {
            kill(pid_, SIGKILL); // the kernel gives back a lock it held
            waitpid(pid_, nullptr, 0);
        }
    }
    Writer(const Writer &) = delete;
    Writer &operator=(const Writer &) = delete;

  private:
    pid_t pid_ = -1;
};

void LockedReadMinOnuId(benchmark::State &state) {
    const Writer writer(state.range(0) != 0);
    for (auto _ : state) {
        benchmark::DoNotOptimize(gv_opt_format_get_min_onu_id());
    }
}
BENCHMARK(LockedReadMinOnuId)->ArgName("writer")->Arg(0)->Arg(1);

void LockedReadDescription(benchmark::State &state) {
    const Writer writer(state.range(0) != 0);
    char text[GV_OPT_FORMAT_DESC_OUT_SIZE];
    for (auto _ : state) {
        benchmark::DoNotOptimize(gv_opt_format_get_onu_description(5, 64, text));
    }
}
BENCHMARK(LockedReadDescription)->ArgName("writer")->Arg(0)->Arg(1);

void LockedWriteDescription(benchmark::State &state) {
    const Writer writer(state.range(0) != 0);
    for (auto _ : state) {
        benchmark::DoNotOptimize(gv_opt_format_set_onu_description(5, 64, "lobby, 2nd floor", 16));
    }
}
BENCHMARK(LockedWriteDescription)->ArgName("writer")->Arg(0)->Arg(1);

// What a full "show" of the chassis costs: every description of 32 PONs.
void ReadAllDescriptions(benchmark::State &state) {
    const Writer writer(state.range(0) != 0);
    char text[GV_OPT_FORMAT_DESC_OUT_SIZE];
    for (auto _ : state) {
        for (int port = 1; port <= kPons; ++port) {
            for (int onu = 1; onu <= kOnuIds; ++onu) {
                benchmark::DoNotOptimize(gv_opt_format_get_onu_description(port, onu, text));
            }
        }
    }
    state.SetItemsProcessed(state.iterations() * kPons * kOnuIds);
}
BENCHMARK(ReadAllDescriptions)->ArgName("writer")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv) {
    // The store's key is fixed: keep it away from any store on this machine.
    const std::string error = gvtest::enter_private_ipc_namespace();
    if (!error.empty()) {
        std::fprintf(stderr, "onuopt_bench: %s\n", error.c_str());
        return 1;
    }
    gvtest::ChassisRoot root{"k7500"};
    gv_opt_format_attach_shm(gv_opt_format_create_shm());
    gv_opt_format_create_sem();
    gv_opt_format_init_db();

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
