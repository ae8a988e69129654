"""A Chromium without a window, spoken to over pipes by its DevTools protocol."""
import base64
import fcntl
import json
import os
import select
import shutil
import struct
import subprocess
import tempfile
import time
import zlib

OPTIONS = """--headless --no-sandbox --disable-gpu --disable-quic --no-first-run
    --disable-background-networking --disable-component-update --disable-sync
    --disable-dev-shm-usage --hide-scrollbars --force-device-scale-factor=1
    --remote-debugging-pipe""".split()


class Browser:
    """One page at a time. Its profile is removed with it."""

    def __init__(self, timeout=60):
        self.timeout = timeout
        self.number = 0
        self.session = None
        self.events = []
        self.rest = b""
        self.folder = tempfile.mkdtemp(prefix="report-browser-")
        # Above the numbers 3 and 4, which Chromium expects.
        theirs_in, self.output = (fcntl.fcntl(fd, fcntl.F_DUPFD_CLOEXEC, 10) for fd in os.pipe())
        self.input, theirs_out = (fcntl.fcntl(fd, fcntl.F_DUPFD_CLOEXEC, 10) for fd in os.pipe())

        def connect():
            os.dup2(theirs_in, 3)
            os.dup2(theirs_out, 4)

        self.process = subprocess.Popen(
            ["chromium", *OPTIONS, f"--user-data-dir={self.folder}", "about:blank"],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
            pass_fds=(3, 4), preexec_fn=connect, start_new_session=True)
        os.close(theirs_in)
        os.close(theirs_out)
        target = self.call("Target.createTarget", url="about:blank")["targetId"]
        self.session = self.call("Target.attachToTarget", targetId=target, flatten=True)["sessionId"]
        for domain in ("Page", "Network", "DOM", "CSS", "Runtime", "Log"):
            self.call(f"{domain}.enable")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.terminate()
        try:
            self.process.wait(10)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def call(self, method, **parameters):
        self.number += 1
        message = {"id": self.number, "method": method, "params": parameters}
        if self.session:
            message["sessionId"] = self.session
        os.write(self.output, json.dumps(message).encode() + b"\0")
        while True:
            answer = self.read()
            if answer.get("id") == self.number:
                if "error" in answer:
                    raise RuntimeError(f"{method}: {answer['error']['message']}")
                return answer["result"]
            self.events.append(answer)

    def read(self):
        end = time.monotonic() + self.timeout
        while b"\0" not in self.rest:
            if not select.select([self.input], [], [], max(0, end - time.monotonic()))[0]:
                raise RuntimeError("Chromium does not answer")
            piece = os.read(self.input, 1 << 20)
            if not piece:
                raise RuntimeError("Chromium has ended")
            self.rest += piece
        message, self.rest = self.rest.split(b"\0", 1)
        return json.loads(message)

    def open(self, path, width=1200, height=900):
        self.call("Emulation.setDeviceMetricsOverride", width=width, height=height,
                  deviceScaleFactor=1, mobile=False)
        self.events.clear()
        self.call("Page.navigate", url=f"file://{os.path.abspath(path)}")
        while not any(event.get("method") == "Page.loadEventFired" for event in self.events):
            self.events.append(self.read())
        self.root = self.call("DOM.getDocument", depth=0)["root"]["nodeId"]

    def evaluate(self, expression):
        """Works without the page's JavaScript, too."""
        result = self.call("Runtime.evaluate", expression=expression, awaitPromise=True,
                           returnByValue=True)
        if "exceptionDetails" in result:
            raise RuntimeError(f"{expression}: {result['exceptionDetails']}")
        return result["result"].get("value")

    def media(self, **features):
        kind = features.pop("kind", "screen")
        pairs = [{"name": name.replace("_", "-"), "value": value}
                 for name, value in features.items()]
        self.call("Emulation.setEmulatedMedia", media=kind, features=pairs)

    def find(self, selector):
        return self.call("DOM.querySelectorAll", nodeId=self.root, selector=selector)["nodeIds"]

    def get_fonts(self, node):
        """The fonts that the glyphs of an element are really drawn with."""
        return self.call("CSS.getPlatformFontsForNode", nodeId=node)["fonts"]

    def get_box(self, node):
        quad = self.call("DOM.getBoxModel", nodeId=node)["model"]["border"]
        return {"x": quad[0], "y": quad[1], "width": quad[2] - quad[0],
                "height": quad[5] - quad[1], "scale": 1}

    def screenshot(self, path=None, node=None, whole=False):
        options = {}
        if node is not None:
            options = {"clip": self.get_box(node), "captureBeyondViewport": True}
        elif whole:
            size = self.call("Page.getLayoutMetrics")["cssContentSize"]
            options = {"captureBeyondViewport": True,
                       "clip": {"x": 0, "y": 0, "width": size["width"],
                                "height": min(size["height"], 12000), "scale": 1}}
        data = base64.b64decode(self.call("Page.captureScreenshot", format="png", **options)["data"])
        if path:
            with open(path, "wb") as file:
                file.write(data)
        return data

    def list_requests(self):
        return [event["params"]["request"]["url"] for event in self.events
                if event.get("method") == "Network.requestWillBeSent"]

    def list_complaints(self):
        """What the console reports, such as blocked scripts and refused fonts."""
        entries = [event["params"]["entry"]["text"] for event in self.events
                   if event.get("method") == "Log.entryAdded"]
        return entries + [str(event["params"]) for event in self.events
                          if event.get("method") == "Runtime.exceptionThrown"]


def read_pixels(png):
    """(width, height, bytes per pixel, rows) of a PNG file of 8 bits per channel."""
    position, data = 8, b""
    while position < len(png):
        size, kind = struct.unpack(">I4s", png[position:position + 8])
        body = png[position + 8:position + 8 + size]
        if kind == b"IHDR":
            width, height, _, colour = struct.unpack(">IIBB", body[:10])
        elif kind == b"IDAT":
            data += body
        position += size + 12
    count = {2: 3, 6: 4}[colour]
    raw, stride, rows = zlib.decompress(data), width * count, []
    before = bytearray(stride)
    for start in range(0, height * (stride + 1), stride + 1):
        row = bytearray(raw[start + 1:start + 1 + stride])
        undo_filter(raw[start], row, before, count)
        rows.append(bytes(row))
        before = row
    return width, height, count, rows


def undo_filter(kind, row, above, count):
    for place, value in enumerate(row):
        left = row[place - count] if place >= count else 0
        corner = above[place - count] if place >= count else 0
        up = above[place]
        if kind == 1:
            value += left
        elif kind == 2:
            value += up
        elif kind == 3:
            value += (left + up) // 2
        elif kind == 4:
            guess = left + up - corner
            nearest = min((abs(guess - left), 0, left), (abs(guess - up), 1, up),
                          (abs(guess - corner), 2, corner))
            value += nearest[2]
        row[place] = value & 255
