"""A desktop portal that does one thing, in place of the real one:

    fake_portal.py DEED RECORD [URI]      writes what it was asked to the file RECORD, a line of JSON each

It prints "ready" once it can be asked. Its deeds are named below; "chooses" answers with the URI.
"""

import json
import os
import sys

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402  the version must be asked for first

interfaces = """<node>
  <interface name="org.freedesktop.portal.FileChooser">
    <property name="version" type="u" access="read"/>
    <method name="OpenFile">
      <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="a{sv}" direction="in"/>
      <arg type="o" direction="out"/>
    </method>
  </interface>
  <interface name="org.freedesktop.portal.Request"><method name="Close"/></interface>
</node>"""


def answered(*uris):
    return GLib.Variant("(ua{sv})", (0, {"uris": GLib.Variant("as", uris)}))


# What it responds with, at once.
responses = {
    "chooses": answered(*sys.argv[3:]),
    "talks-nonsense": GLib.Variant("(s)", ("nonsense",)),
    "cancels": GLib.Variant("(ua{sv})", (1, {})),
    "gives-up": GLib.Variant("(ua{sv})", (2, {})),
}


class Portal:
    def __init__(self, deed, record):
        self.deed, self.record = deed, record
        self.loop = GLib.MainLoop()
        self.nodes = {each.name: each for each in Gio.DBusNodeInfo.new_for_xml(interfaces).interfaces}
        name = "org.freedesktop.portal.Desktop"
        Gio.bus_own_name(Gio.BusType.SESSION, name, Gio.BusNameOwnerFlags.NONE, self.begin, self.ready, None)

    def begin(self, bus, _):
        chooser = self.nodes["org.freedesktop.portal.FileChooser"]
        bus.register_object("/org/freedesktop/portal/desktop", chooser, self.open, self.version, None)

    def ready(self, *_):
        print("ready", flush=True)

    def version(self, *_):
        if self.deed == "hangs":
            GLib.MainLoop().run()
        return GLib.Variant("u", 2 if self.deed == "is-old" else 3)

    def open(self, bus, sender, path, interface, method, words, call):
        parent, title, options = words.unpack()
        self.write({"parent": parent, "title": title, **options})
        request = f"{path}/request/{sender[1:].replace('.', '_')}/{options['handle_token']}"
        bus.register_object(request, self.nodes["org.freedesktop.portal.Request"], self.close, None, None)
        if self.deed == "vanishes":
            os._exit(0)
        if self.deed == "refuses":
            call.return_dbus_error("org.freedesktop.portal.Error.Failed", "not today")
            return
        wrong = "/org/freedesktop/portal/desktop/another"
        call.return_value(GLib.Variant("(o)", (wrong if self.deed == "opens-another" else request,)))
        if self.deed in responses:
            response = responses[self.deed]
            bus.emit_signal(None, request, "org.freedesktop.portal.Request", "Response", response)

    def close(self, bus, sender, path, interface, method, words, call):
        self.write({"closed": path.rpartition("/")[2]})
        call.return_value(None)

    def write(self, words):
        with open(self.record, "a") as record:
            record.write(json.dumps(words) + "\n")


Portal(*sys.argv[1:3]).loop.run()
