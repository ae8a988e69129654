"""What is measured within one process, by programs that use Google Benchmark."""
import json
import os
import subprocess

UNITS = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1}


def run(program, arguments, seconds):
    command = [program, *arguments, "--benchmark_format=json",
               "--benchmark_min_time=%g" % seconds]
    output = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                            check=True).stdout
    return {result["name"]: result for result in json.loads(output)["benchmarks"]}


def get_time(result):
    unit = UNITS[result["time_unit"]]
    return {"seconds": result["real_time"] * unit, "cpu": result["cpu_time"] * unit, "MB": 0}


def get_wall(result):
    """For what runs another process, whose CPU time isn't counted."""
    seconds = get_time(result)["seconds"]
    return {"seconds": seconds, "cpu": seconds, "MB": 0}


def get_start(result):
    """Of a process for each measurement: the benchmark's time is the CPU time of these."""
    return {"seconds": result["wall"], "cpu": get_time(result)["seconds"], "MB": 0}


def measure_library(build, library, rows, seconds):
    results = run(os.path.join(build, "bench/library-bench"), [library], seconds)
    rows.add("check that nothing changed", "100 ms for 10,000", "stat of each file",
             get_time(results["CheckUnchanged"]), get_time(results["LookAtEachFile"]))
    rows.add("activate 20 fonts", "", "20 links, 1 rename", get_time(results["ActivateFonts"]),
             get_time(results["LinkAndRename"]))
    rows.add("the same, with a look of fontconfig", "", "20 links, 1 rename",
             get_wall(results["ActivateAndLook/inThisProcess/real_time"]),
             get_wall(results["LinkAndRename"]))
    rows.add("the same, until fc-list has them", "20 ms", "fc-list alone",
             get_wall(results["ActivateAndLook/withFcList/real_time"]),
             get_wall(results["FcListAlone/real_time"]))
    return split_activation({name: get_time(result)["seconds"] for name, result in results.items()})


def split_activation(seconds):
    """Where the time goes until another process has 20 fonts: pairs of a part and its seconds."""
    ours = seconds["ActivateFonts"]
    whole = seconds["ActivateAndLook/withFcList/real_time"]
    alone = seconds["FcListAlone/real_time"]
    links = seconds["LinkAndRename"]
    rows = seconds["StoreActivation"]
    return [("SQLite", rows), ("links and rename", links),
            ("the rest of ours", ours - rows - links), ("fc-list without new fonts", alone),
            ("fc-list, for the new ones", whole - ours - alone)]


def measure_plugin(build, rows, seconds):
    results = run(os.path.join(build, "bench/plugin-bench"), [], seconds)
    walk = get_time(results["BareWalk"])
    pair = results["RatioOfReportToBareWalk"]
    own = pair["without traces"] - 1
    part = {what: walk[what] * own for what in walk}
    rows.add("usage report of 122,500 runs, own part", "ratio 2", "bare walk", part, walk, own)
    rows.add("usage report, whole", "", "walk and traces", get_time(results["UsageReport"]),
             get_time(results["BareWalkWithTraces"]))
    rows.add("menu update of 2,000 nodes", "ratio 1.3", "parse",
             get_time(results["UpdateMenus/2000"]), get_time(results["ParseMenus/2000"]))
    trace = get_time(results["OneTraceCall"])
    rows.add("file check, nothing to do", "10 µs", "one trace",
             get_time(results["FileCheckWithoutFonts"]), trace)
    rows.add("file check, 20 fonts, without PluginCore", "", "one trace",
             get_time(results["FileCheck/20"]), trace)
    results = run(os.path.join(build, "bench/startup/startup-bench"), [], seconds)
    plugin, empty = (get_start(results["Start/%s/manual_time" % name])
                     for name in ("Plugin", "EmptyModule"))
    more = {what: plugin[what] - empty[what] for what in plugin}
    rows.add("startup of the plug-in, over the peer", "5 ms", "dlopen of an empty module",
             more, empty)
