"""What the program talks to."""

import re

import case


class Private(case.WindowTest):
    calls = "socket,socketpair,connect,bind,listen,accept,accept4"
    # The desktop's folder is above the one that its programs start in.
    before = ("strace", "-D", "-f", "--seccomp-bpf", "-qq", "-e", f"trace={calls}", "-o", "../network")

    def testConnectsOnlyToTheDisplayAndTheTwoBuses(self):
        self.choose(self.folder)
        self.openSheet("Blue Hour")
        self.program.type("Azure Hour")
        self.program.key("Return")
        self.program.find("button", "Rename Azure Hour")
        self.program.key("alt+F4")
        self.assertEqual(self.program.process.wait(10), 0)

        trace = (self.desktop.folder / "network").read_text()
        families = set(re.findall(r"\bsocket(?:pair)?\((\w+)", trace))
        self.assertEqual(families, {"AF_UNIX"})
        self.assertEqual(re.findall(r"\b(?:bind|listen|accept4?)\(.*", trace), [])
        display = self.desktop.environment["DISPLAY"].removeprefix(":")
        session = re.search("path=([^,]+)", self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"])[1]
        allowed = [f"/tmp/.X11-unix/X{display}", session, f"{self.desktop.runtime}/at-spi/bus"]
        reached = re.findall(r'\bconnect\(\d+, \{sa_family=AF_UNIX, sun_path=@?"([^"]+)".* = 0$', trace, re.MULTILINE)
        self.assertEqual({path for path in reached if not path.startswith(tuple(allowed))}, set())
        self.assertEqual(len({next(each for each in allowed if path.startswith(each)) for path in reached}), 3)


if __name__ == "__main__":
    case.main()
