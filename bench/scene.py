"""What the benchmarks of whole programs share: a user's home folder, documents, and runs."""
import os
import subprocess
import sys
import tempfile
import time

BENCH = os.path.dirname(os.path.abspath(__file__))


def get_font(number):
    return "Bench%06d-Regular" % number


class Scene:
    """A home folder of its own with one font library, in a temporary folder that is removed."""

    def __init__(self, build, fonts):
        self.folder = tempfile.TemporaryDirectory(prefix="bench-")
        self.path = self.folder.name
        self.library = os.path.join(self.path, "library")
        self.vexcor = os.path.join(build, "programs/installed/Vexcor/Vexcor")
        self.host = os.path.join(build, "programs/headless-host/headless-host")
        self.plugin = ["--plugin", os.path.join(build, "plugins/illustrator/src/TypeloftSPEA.aip"),
                       "--frameworks", os.path.join(build, "programs/event-bus/Frameworks")]
        data = os.path.join(self.path, "data")
        os.makedirs(os.path.join(data, "fonts"))
        # No font of the system: the programs would spend time on those, too.
        self.write("fonts.conf", '<fontconfig><dir prefix="xdg">fonts</dir>'
                   '<cachedir prefix="xdg">fontconfig</cachedir></fontconfig>')
        self.write("peer.conf", "<fontconfig><dir>%s</dir><cachedir>%s/peer-cache</cachedir>"
                   "</fontconfig>" % (self.library, self.path))
        self.environment = dict(
            os.environ, HOME=self.path, XDG_DATA_HOME=data,
            XDG_CONFIG_HOME=self.path + "/config", XDG_CACHE_HOME=self.path + "/cache",
            XDG_STATE_HOME=self.path + "/state", CORVANTA_FONT_LIBRARY=self.library,
            FONTCONFIG_FILE=self.path + "/fonts.conf")
        subprocess.run([os.path.join(BENCH, "make-library"), self.library, str(fonts)], check=True)
        self.run([self.vexcor, "install"])

    def write(self, name, text):
        path = os.path.join(self.path, name)
        with open(path, "w", encoding="ascii") as file:
            file.write(text)
        return path

    def make_document(self, name, first, count):
        fonts = "\n%%+ ".join(get_font(number) for number in range(first, first + count))
        return self.write(name, "%%!PS-Adobe-3.0 EPSF-3.0\n%%%%BoundingBox: 0 0 10 10\n"
                          "%%%%DocumentFonts: %s\n%%%%EndComments\nshowpage\n%%%%EOF\n" % fonts)

    def open(self, document):
        return [self.host, "open", *self.plugin, document]

    def script(self, path):
        return [self.host, "script", *self.plugin, path]

    def start(self, command):
        return subprocess.Popen(command, env=self.environment, stdout=subprocess.PIPE,
                                stderr=subprocess.DEVNULL, text=True)

    def run(self, command, peer=False):
        """Returns the seconds, the seconds of CPU and the most memory in MB of one run."""
        for _ in range(30):
            result, status, message = self.run_once(command, peer)
            if status == 0:
                return result
            # The plug-in prefers the PluginCore of a Vexcor that runs, such as one of another test.
            if "Missing PluginCore" not in message:
                break
            time.sleep(1)
        sys.exit("%s: status %d: %s" % (command[0], status, message))

    def run_once(self, command, peer):
        environment = dict(self.environment)
        if peer:
            environment["FONTCONFIG_FILE"] = self.path + "/peer.conf"
        start = time.perf_counter()
        process = subprocess.Popen(command, env=environment, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.PIPE)
        message = process.stderr.read()
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        process.stderr.close()
        seconds = time.perf_counter() - start
        result = {"seconds": seconds, "cpu": usage.ru_utime + usage.ru_stime,
                  "MB": usage.ru_maxrss / 1024}
        return result, process.returncode, message.decode(errors="replace")
