#!/usr/bin/env python3
"""Plant single faults in the sources, one at a time, and see whether the
test suite catches each.

Every fault in faults.txt names a file, a text that occurs exactly once in
it and the text to put instead. For each fault the script writes the planted
file, builds incrementally in its own Release build folder, runs the tests
with ctest and puts the file back as it was, also when the run is stopped
with Ctrl+C or fails. A fault whose text is gone or no longer unique is
"stale" and left unplanted; a fault that breaks the build is "does not
compile" and counts as neither caught nor missed.

    tools/faults/plant.py                     every fault, table on stdout
    tools/faults/plant.py --only model-,warp-bias-start --out table.md
    tools/faults/plant.py --list              the faults and whether they apply
"""

import argparse
import os
import re
import signal
import subprocess
import sys
import time
from dataclasses import dataclass, field
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
BUILDENV = Path("/work/buildenv.sh")


@dataclass
class Fault:
    id: str
    file: str
    kind: str
    find: str
    replace: str
    line: int  # where it starts in faults.txt


@dataclass
class Outcome:
    fault: Fault
    result: str  # caught, missed, stale, does not compile
    tests: list = field(default_factory=list)
    seconds: float = 0.0
    note: str = ""


FIELDS = ("id", "file", "kind", "find", "replace")


def parse_faults(path):
    """Blocks of 'key: value' lines, one fault per block, blank lines between
    blocks. A line that starts with two spaces continues the field above it
    on a new line (for a text that spans lines); '#' starts a comment line."""
    faults, block, last, start = [], {}, None, 0
    text = path.read_text(encoding="utf-8").split("\n")

    def finish(lineno):
        nonlocal block, last
        if block:
            missing = [k for k in FIELDS if k not in block]
            if missing:
                sys.exit(f"{path}:{lineno}: fault is missing {', '.join(missing)}")
            faults.append(Fault(line=lineno, **{k: block[k] for k in FIELDS}))
        block, last = {}, None

    for n, raw in enumerate(text, 1):
        if raw.startswith("#"):
            continue
        if not raw.strip():
            finish(start)
            continue
        if raw.startswith("  ") and last:
            block[last] += "\n" + raw[2:]
            continue
        key, sep, value = raw.partition(":")
        if not sep or key not in FIELDS:
            sys.exit(f"{path}:{n}: expected one of {', '.join(FIELDS)}, got: {raw}")
        if not block:
            start = n
        if key in block:
            sys.exit(f"{path}:{n}: {key} given twice")
        block[key] = value[1:] if value.startswith(" ") else value
        last = key
    finish(start)
    ids = [f.id for f in faults]
    dup = {i for i in ids if ids.count(i) > 1}
    if dup:
        sys.exit(f"{path}: ids used twice: {', '.join(sorted(dup))}")
    return faults


def shell_env():
    """The environment with the shared compiler cache of buildenv.sh."""
    env = dict(os.environ)
    if BUILDENV.exists():
        out = subprocess.run(["bash", "-c", f"source {BUILDENV} && env -0"],
                             capture_output=True, check=True).stdout
        for item in out.split(b"\0"):
            k, sep, v = item.decode(errors="replace").partition("=")
            if sep:
                env[k] = v
    env["QT_QPA_PLATFORM"] = "offscreen"
    return env


def run(cmd, env, timeout=None):
    """Runs cmd in its own process group so that a timeout or Ctrl+C ends
    everything it started. Returns (exit code or None on timeout, output)."""
    proc = subprocess.Popen(cmd, cwd=ROOT, env=env, stdout=subprocess.PIPE,
                            stderr=subprocess.STDOUT, start_new_session=True)
    try:
        out, _ = proc.communicate(timeout=timeout)
        return proc.returncode, out.decode(errors="replace")
    except subprocess.TimeoutExpired:
        os.killpg(proc.pid, signal.SIGKILL)
        out, _ = proc.communicate()
        return None, out.decode(errors="replace")
    except BaseException:
        os.killpg(proc.pid, signal.SIGKILL)
        proc.wait()
        raise


def build(build_dir, env, jobs):
    if not (ROOT / build_dir / "CMakeCache.txt").exists():
        code, out = run(["cmake", "-S", ".", "-B", build_dir, "-DCMAKE_BUILD_TYPE=Release"], env)
        if code != 0:
            return False, out
    code, out = run(["cmake", "--build", build_dir, "-j", str(jobs)], env)
    return code == 0, out


GTEST_FAILED = re.compile(r"^\[  FAILED  \] (\S+\.\S+)", re.M)
GTEST_RUN = re.compile(r"^\[ RUN      \] (\S+\.\S+)", re.M)
GTEST_OK = re.compile(r"^\[       OK \] (\S+\.\S+)", re.M)
CTEST_FAILED = re.compile(r"^\s*\d+ - (\S+) \((.*)\)\s*$", re.M)


def run_tests(build_dir, env, timeout, regex):
    cmd = ["ctest", "--test-dir", build_dir, "--output-on-failure", "--timeout", str(timeout)]
    if regex:
        cmd += ["-R", regex]
    code, out = run(cmd, env, timeout=timeout + 30)
    if code is None:
        return ["(the whole run timed out)"], out
    names = list(dict.fromkeys(GTEST_FAILED.findall(out)))
    # A test that crashed the binary started and never ended.
    ended = set(names) | set(GTEST_OK.findall(out))
    names += [f"{n} (crashed)" for n in dict.fromkeys(GTEST_RUN.findall(out)) if n not in ended]
    tail = out.split("The following tests FAILED:", 1)
    for test, why in CTEST_FAILED.findall(tail[1] if len(tail) > 1 else ""):
        if why != "Failed" or not names:
            names.append(f"{test} ({why})")
    if code != 0 and not names:
        names.append("(ctest failed)")
    return names, out


class Planted:
    """The planted file for the span of a with-block; the original bytes are
    written back whatever happens inside it."""

    def __init__(self, path, text):
        self.path, self.text = path, text
        self.original = path.read_bytes()

    def __enter__(self):
        self.path.write_text(self.text, encoding="utf-8")
        return self

    def __exit__(self, *exc):
        self.path.write_bytes(self.original)
        return False


def check(fault):
    """The planted text of the file, or None with a reason when stale."""
    path = ROOT / fault.file
    if not path.exists():
        return None, "file is gone"
    text = path.read_text(encoding="utf-8")
    count = text.count(fault.find)
    if count != 1:
        return None, f"text found {count} times"
    return text.replace(fault.find, fault.replace), ""


def try_fault(fault, args, env, log):
    start = time.monotonic()
    planted, why = check(fault)
    if planted is None:
        return Outcome(fault, "stale", note=why)
    with Planted(ROOT / fault.file, planted):
        ok, out = build(args.build, env, args.jobs)
        log.write(f"==== {fault.id}: build\n{out}\n")
        if not ok:
            return Outcome(fault, "does not compile", seconds=time.monotonic() - start)
        names, out = run_tests(args.build, env, args.timeout, args.tests)
        log.write(f"==== {fault.id}: tests\n{out}\n")
    result = "caught" if names else "missed"
    return Outcome(fault, result, names, time.monotonic() - start)


def table(outcomes):
    rows = ["| id | file | kind | result | failing tests |", "|---|---|---|---|---|"]
    for o in outcomes:
        tests = ", ".join(o.tests[:4]) + (f" and {len(o.tests) - 4} more" if len(o.tests) > 4 else "")
        result = o.result + (f" ({o.note})" if o.note else "")
        rows.append(f"| {o.fault.id} | {o.fault.file} | {o.fault.kind} | {result} | {tests} |")
    return "\n".join(rows)


def summary(outcomes):
    count = lambda r: sum(o.result == r for o in outcomes)
    planted = count("caught") + count("missed")
    caught = count("caught")
    rate = f" ({100 * caught / planted:.0f} %)" if planted else ""
    line = f"{planted} planted, {caught} caught{rate}, {count('missed')} missed"
    extra = [f"{count(r)} {r}" for r in ("stale", "does not compile") if count(r)]
    return line + ("; " + ", ".join(extra) if extra else "")


def main():
    here = Path(__file__).resolve().parent
    p = argparse.ArgumentParser(description=__doc__.split("\n\n")[0],
                                formatter_class=argparse.RawDescriptionHelpFormatter)
    p.add_argument("--faults", type=Path, default=here / "faults.txt", help="the list of faults")
    p.add_argument("--only", default="", help="comma-separated ids or id prefixes ending in '-' or '*'")
    p.add_argument("--build", default="build-faults", help="build folder (default build-faults)")
    p.add_argument("--jobs", type=int, default=2, help="parallel build jobs (default 2)")
    p.add_argument("--timeout", type=int, default=120, help="seconds each ctest test may take (default 120)")
    p.add_argument("--tests", default="", help="ctest -R regex: run only these ctest tests")
    p.add_argument("--out", type=Path, help="also write the table and summary to this file")
    p.add_argument("--log", type=Path, help="build and test output (default <build>/faults.log)")
    p.add_argument("--list", action="store_true", help="list the faults and whether they apply")
    args = p.parse_args()

    faults = parse_faults(args.faults)
    if args.only:
        wanted = [w.strip() for w in args.only.split(",") if w.strip()]
        unknown = [w for w in wanted if not any(match_one(f.id, w) for f in faults)]
        if unknown:
            sys.exit(f"no fault matches: {', '.join(unknown)}")
        faults = [f for f in faults if any(match_one(f.id, w) for w in wanted)]
    if args.list:
        for f in faults:
            _, why = check(f)
            print(f"{f.id:32} {f.file:40} {f.kind}{'  [stale: ' + why + ']' if why else ''}")
        return 0

    # A termination signal restores the file as Ctrl+C does.
    signal.signal(signal.SIGTERM, lambda *_: (_ for _ in ()).throw(KeyboardInterrupt()))
    env = shell_env()
    log_path = args.log or ROOT / args.build / "faults.log"
    outcomes = []
    started = time.monotonic()
    try:
        ok, out = build(args.build, env, args.jobs)
        if not ok:
            sys.exit(f"the unplanted tree does not build in {args.build}:\n{out[-3000:]}")
        log_path.parent.mkdir(parents=True, exist_ok=True)
        with open(log_path, "w", encoding="utf-8") as log:
            for n, fault in enumerate(faults, 1):
                print(f"[{n}/{len(faults)}] {fault.id} ...", end=" ", flush=True, file=sys.stderr)
                o = try_fault(fault, args, env, log)
                log.flush()
                outcomes.append(o)
                print(f"{o.result} {', '.join(o.tests[:3])} ({o.seconds:.0f} s)", file=sys.stderr)
    except KeyboardInterrupt:
        print("\nstopped; the planted file is restored", file=sys.stderr)
    total = time.monotonic() - started
    report = f"{table(outcomes)}\n\n{summary(outcomes)}\n"
    report_time = f"Run time: {total / 60:.1f} min for {len(outcomes)} faults.\n"
    print(report + "\n" + report_time)
    if args.out:
        args.out.write_text(report + "\n" + report_time, encoding="utf-8")
    return 0


def match_one(fault_id, wanted):
    return fault_id == wanted or (wanted[-1] in "-*" and fault_id.startswith(wanted.rstrip("*")))


if __name__ == "__main__":
    sys.exit(main())
