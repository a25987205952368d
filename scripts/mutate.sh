#!/usr/bin/env bash
# Plants one fault at a time in src/ and runs the test suite against it: a
# mutant the suite does not fail "survives", which names a behaviour no test
# holds. Faults: a flipped comparison (< and <=, > and >=, == and !=), a
# bound off by one (a number n becomes n + 1) and an altered operator
# message (its first letter changes case). The sites are a fixed sample,
# drawn with a seed from every such site in src/, so a run is reproducible.
#
# Usage: scripts/mutate.sh [COUNT] [SEED]     (default: 80 mutants, seed 14)
#   MUTATE_TIMEOUT   seconds the suite may take per mutant (default 300)
#   MUTATE_LIST=1    list the sample and stop
# Builds in build/mutate (its own tree: tests are not relinked for each
# library change); the report goes to build/mutate/report.txt. The mutated
# file is restored after each mutant and on any exit.
set -euo pipefail

count="${1:-80}"
seed="${2:-14}"
timeout_s="${MUTATE_TIMEOUT:-300}"
repo_root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
cd "$repo_root"

build=build/mutate
mkdir -p "$build"
sites="$build/sites.tsv"

# The sample, one site per line: file, byte offset, length, replacement,
# line number, what.
python3 - "$count" "$seed" >"$sites" <<'PY'
import pathlib, random, re, sys

count, seed = int(sys.argv[1]), int(sys.argv[2])
flip = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="}
comparison = re.compile(r" (<=|>=|==|!=|<|>) ")
number = re.compile(r"(?<![\w.'])(\d+)(?![\w.'])")
message = re.compile(r'"(%%\s?)([A-Za-z])')
string = re.compile(r'"(?:[^"\\]|\\.)*"')

sites = []
for path in sorted(pathlib.Path("src").rglob("*")):
    if path.suffix not in (".cpp", ".h"):
        continue
    text = path.read_text()
    offset = 0
    number_of_line = 0
    in_block = False
    for line in text.splitlines(keepends=True):
        start, code = offset, line
        offset += len(line.encode())
        stripped = line.strip()
        if in_block or stripped.startswith(("/*", "#", "//", "static_assert")):
            number_of_line += 1
        if in_block:
            in_block = "*/" not in stripped
            continue
        if stripped.startswith("/*"):
            in_block = "*/" not in stripped
            continue
        if stripped.startswith(("#", "//", "static_assert")):
            continue
        strings = [m.span() for m in string.finditer(line)]
        inside = lambda col: any(a <= col < b for a, b in strings)
        comment = next((m.start() for m in re.finditer("//", line) if not inside(m.start())), None)
        code = line[:comment]
        number_of_line += 1
        def at(col):
            return start + len(line[:col].encode())
        for m in comparison.finditer(code):
            if not inside(m.start(1)):
                op = m.group(1)
                sites.append((str(path), at(m.start(1)), len(op), flip[op], number_of_line,
                              f"{op} -> {flip[op]}"))
        for m in number.finditer(code):
            if not inside(m.start(1)):
                n = m.group(1)
                sites.append((str(path), at(m.start(1)), len(n), str(int(n) + 1),
                              number_of_line, f"{n} -> {int(n) + 1}"))
        for m in message.finditer(code):
            letter = m.group(2)
            sites.append((str(path), at(m.start(2)), 1, letter.swapcase(), number_of_line,
                          f'message "{m.group(1)}{letter}..." -> "{m.group(1)}{letter.swapcase()}..."'))

# Two fifths comparisons, a third numbers, the rest messages (there are far
# more numbers than messages, which would otherwise hardly be drawn).
rng = random.Random(seed)
kinds = {"comparison": [], "number": [], "message": []}
for site in sites:
    what = site[-1]
    kind = "message" if what.startswith("message") else "comparison" if what[0] in "<>=!" else "number"
    kinds[kind].append(site)
shares = {"comparison": count * 2 // 5, "number": count // 3}
shares["message"] = count - shares["comparison"] - shares["number"]
chosen = []
for kind, share in shares.items():
    chosen += rng.sample(kinds[kind], min(share, len(kinds[kind])))
print(f"# {len(sites)} sites in src/ ({', '.join(f'{len(v)} {k}s' for k, v in kinds.items())}),"
      f" {len(chosen)} drawn with seed {seed}", file=sys.stderr)
for site in sorted(chosen):
    print("\t".join(map(str, site)))
PY

if [[ "${MUTATE_LIST:-0}" == 1 ]]; then
    awk -F'\t' '{ printf "%s:%s  %s\n", $1, $5, $6 }' "$sites"
    exit 0
fi

bash scripts/install-deps.sh native
cmake --preset default -B "$build" -DBUILD_BENCHMARKS=OFF -DCMAKE_LINK_DEPENDS_NO_SHARED=ON \
    >/dev/null
cmake --build "$build" -j2 >/dev/null

current=""
backup="$build/original"
restore() {
    if [[ -n "$current" ]]; then
        cp "$backup" "$current"
        touch "$current" # newer than its mutated object, so the next build recompiles it
        current=""
    fi
}
trap 'restore' EXIT
trap 'restore; exit 130' INT TERM

# Applies one mutation to a file in place: bytes [offset, offset + length)
# become the replacement.
mutate() {
    python3 - "$@" <<'PY'
import sys
path, offset, length, replacement = sys.argv[1], int(sys.argv[2]), int(sys.argv[3]), sys.argv[4]
data = open(path, "rb").read()
open(path, "wb").write(data[:offset] + replacement.encode() + data[offset + length:])
PY
}

report="$build/report.txt"
: >"$report"
killed=0 survived=0 stillborn=0 n=0
total=$(wc -l <"$sites")
while IFS=$'\t' read -r file offset length replacement line what; do
    n=$((n + 1))
    site="$file:$line $what"
    cp "$file" "$backup"
    current="$file"
    mutate "$file" "$offset" "$length" "$replacement"
    if ! cmake --build "$build" -j2 >"$build/build.log" 2>&1; then
        verdict=stillborn
        stillborn=$((stillborn + 1))
    elif timeout "$timeout_s" ctest --test-dir "$build" -j2 --stop-on-failure \
        >"$build/test.log" 2>&1; then
        verdict=SURVIVED
        survived=$((survived + 1))
    else
        verdict=killed
        killed=$((killed + 1))
    fi
    restore
    printf '%3d/%d %-9s %s\n' "$n" "$total" "$verdict" "$site" | tee -a "$report"
done <"$sites"

cmake --build "$build" -j2 >/dev/null
score=0
((killed + survived == 0)) || score=$((100 * killed / (killed + survived)))
echo "mutation score: $killed of $((killed + survived)) mutants killed ($score%)," \
    "$survived survived, $stillborn did not build" | tee -a "$report"
