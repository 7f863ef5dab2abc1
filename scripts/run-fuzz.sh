#!/usr/bin/env bash
# Builds the fuzz preset (clang, libFuzzer, ASan+UBSan) and runs every fuzz
# target over its checked-in corpus fuzz/corpus/<target>/, each seed once: a
# crash, leak, failed check or a seed slower than 60 s fails the script. With
# VESK_FUZZ_SECONDS=n each target then also fuzzes new inputs for n seconds,
# from a scratch copy so the checked-in corpus stays as it is (not in CI: the
# regular-expression engine's backtracking makes some inputs take minutes).
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

seconds="${VESK_FUZZ_SECONDS:-0}"
cmake --preset fuzz
cmake --build --preset fuzz --parallel "${VESK_JOBS}"

scratch="$(mktemp -d)"
trap 'rm -rf "${scratch}"' EXIT
status=0
for target in build/fuzz/fuzz/vesk_fuzz_*; do
  [[ -x "${target}" ]] || continue
  name="$(basename "${target}")"
  corpus="fuzz/corpus/${name}"
  if [[ ! -d "${corpus}" ]] || [[ -z "$(ls -A "${corpus}")" ]]; then
    echo "run-fuzz: ${name} has no corpus in ${corpus}" >&2
    status=1
    continue
  fi
  echo "run-fuzz: ${name}: replaying $(ls "${corpus}" | wc -l) seeds"
  mkdir -p "${scratch}/${name}"
  cp "${corpus}"/* "${scratch}/${name}/"
  if ! "${target}" -runs=0 -timeout=60 "${corpus}" >"${scratch}/${name}.replay.log" 2>&1; then
    tail -40 "${scratch}/${name}.replay.log" >&2
    status=1
    continue
  fi
  ((seconds > 0)) || continue
  echo "run-fuzz: ${name}: fuzzing for ${seconds} s"
  if ! "${target}" -max_total_time="${seconds}" -print_final_stats=1 \
      -artifact_prefix="${scratch}/${name}-" "${scratch}/${name}" >"${scratch}/${name}.log" 2>&1; then
    tail -40 "${scratch}/${name}.log" >&2
    status=1
  fi
  grep -E "stat::number_of_executed_units|stat::new_units_added" "${scratch}/${name}.log" || true
done
exit "${status}"
