// The ONU option store's cost per call: every access is a semaphore round
// trip (two for a per-ONU call, which reads the minimum ONU id first), alone
// and with a second process writing into the same store. Beside them the bare
// semaphore round trip, and at the end what the store's lock costs over it.
#include "gvutil/onuopt.h"
#include "support/chassis_root.h"
#include "support/ipc_namespace.h"

#include <benchmark/benchmark.h>

#include <csignal>
#include <cstdio>
#include <map>
#include <string>
#include <sys/sem.h>
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

// The store's round trip with nothing around it: a take and a release
// (SEM_UNDO, as the store takes it) on a private set of this process.
void BareSemaphorePair(benchmark::State &state) {
    const int sem_id = semget(IPC_PRIVATE, 1, IPC_CREAT | 0600);
    sembuf take{0, -1, SEM_UNDO}, give{0, +1, SEM_UNDO}, first{0, +1, 0};
    if (sem_id < 0 || semop(sem_id, &first, 1) != 0) {
        state.SkipWithError("no private semaphore set");
        return;
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(semop(sem_id, &take, 1));
        benchmark::DoNotOptimize(semop(sem_id, &give, 1));
    }
    semctl(sem_id, 0, IPC_RMID);
}
BENCHMARK(BareSemaphorePair);

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

// The console table, then the store's lock round trip (a locked read of the
// minimum ONU id, no other process) over the bare pair, for each aggregate
// the run produced: in real time, and in CPU time, which a busy machine
// disturbs less.
class LockRatioReporter : public benchmark::ConsoleReporter {
  public:
    LockRatioReporter() : ConsoleReporter(isatty(STDOUT_FILENO) != 0 ? OO_Defaults : OO_Tabular) {}
    void ReportRuns(const std::vector<Run> &runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run &run : runs) {
            if (!run.error_occurred) {
                times_[run.benchmark_name()] = {run.GetAdjustedRealTime(),
                                                run.GetAdjustedCPUTime()};
            }
        }
    }
    void Finalize() override {
        ConsoleReporter::Finalize();
        for (const char *kind : {"", "_mean", "_median"}) {
            const auto store = times_.find(std::string("LockedReadMinOnuId/writer:0") + kind);
            const auto bare = times_.find(std::string("BareSemaphorePair") + kind);
            if (store != times_.end() && bare != times_.end() && bare->second.real > 0 &&
                bare->second.cpu > 0) {
                std::printf(
                    "store lock round trip / bare semaphore pair%s: %.3fx real, %.3fx CPU\n", kind,
                    store->second.real / bare->second.real, store->second.cpu / bare->second.cpu);
            }
        }
    }

  private:
    struct Times {
        double real, cpu;
    };
    std::map<std::string, Times> times_;
};

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
    LockRatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
