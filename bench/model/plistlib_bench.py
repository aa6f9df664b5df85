"""Python's plistlib on the same file, for comparison with bench-model-codec."""
import os
import plistlib
import sys
import time


def status_kb(field):
    with open("/proc/self/status") as status:
        for line in status:
            if line.startswith(field + ":"):
                return int(line.split()[1])
    return 0


def main():
    path = sys.argv[1]
    repeat = int(sys.argv[2]) if len(sys.argv) > 2 else 3
    megabytes = os.path.getsize(path) / 1e6

    with open("/proc/self/clear_refs", "w") as clear:
        clear.write("5")
    before = status_kb("VmRSS")
    start = time.perf_counter()
    with open(path, "rb") as f:
        levels = plistlib.load(f)
    cold_read = time.perf_counter() - start
    peak = status_kb("VmHWM")

    best_read = min(timed_read(path) for _ in range(repeat))
    out = path + ".py-out.plist"
    best_write = min(timed_write(levels, out) for _ in range(repeat))
    os.remove(out)

    print("file_mb %.2f" % megabytes)
    print("levels %d" % len(levels))
    print("cold_read_ms %.1f" % (cold_read * 1e3))
    print("cold_read_mb_per_s %.1f" % (megabytes / cold_read))
    print("read_mb_per_s %.1f" % (megabytes / best_read))
    print("write_mb_per_s %.1f" % (megabytes / best_write))
    print("peak_mb %.1f" % ((peak - before) / 1024))
    print("peak_ratio %.2f" % ((peak - before) / 1024 / megabytes))


def timed_read(path):
    start = time.perf_counter()
    with open(path, "rb") as f:
        plistlib.load(f)
    return time.perf_counter() - start


def timed_write(levels, out):
    start = time.perf_counter()
    with open(out, "wb") as f:
        plistlib.dump(levels, f, fmt=plistlib.FMT_XML, sort_keys=True)
    return time.perf_counter() - start


if __name__ == "__main__":
    main()
