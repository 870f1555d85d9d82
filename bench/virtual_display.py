"""A virtual display: what stands on it, and a mouse. Needs Xvfb, and the X libraries at run time."""
import ctypes
import os
import subprocess
import sys
import time

SCREEN = "1280x1024x24"
PATIENCE = 60.0  # s

libx11 = ctypes.CDLL("libX11.so.6")
libxtst = ctypes.CDLL("libXtst.so.6")


class Attributes(ctypes.Structure):
    """The beginning of XWindowAttributes up to the state, and room for the rest."""

    _fields_ = [("x", ctypes.c_int), ("y", ctypes.c_int), ("width", ctypes.c_int),
                ("height", ctypes.c_int), ("border", ctypes.c_int), ("depth", ctypes.c_int),
                ("visual", ctypes.c_void_p), ("root", ctypes.c_ulong), ("kind", ctypes.c_int),
                ("bit_gravity", ctypes.c_int), ("win_gravity", ctypes.c_int),
                ("backing_store", ctypes.c_int), ("backing_planes", ctypes.c_ulong),
                ("backing_pixel", ctypes.c_ulong), ("save_under", ctypes.c_int),
                ("colormap", ctypes.c_ulong), ("map_installed", ctypes.c_int),
                ("map_state", ctypes.c_int), ("rest", ctypes.c_byte * 256)]


class Display:
    ALL_PLANES = ctypes.c_ulong(-1)
    Z_PIXMAP = 2
    VIEWABLE = 2

    def __init__(self):
        read_end, write_end = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write_end), "-screen", "0", SCREEN, "-nolisten", "tcp"],
            pass_fds=[write_end], stderr=subprocess.DEVNULL)
        os.close(write_end)
        self.name = ":" + os.read(read_end, 16).decode().strip()
        libx11.XOpenDisplay.restype = ctypes.c_void_p
        libx11.XDefaultRootWindow.restype = ctypes.c_ulong
        libx11.XGetImage.restype = ctypes.c_void_p
        libx11.XGetPixel.restype = ctypes.c_ulong
        # A window may go between being listed and being asked about.
        self.on_error = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)(
            lambda display, event: 0)
        libx11.XSetErrorHandler(self.on_error)
        self.display = ctypes.c_void_p(libx11.XOpenDisplay(self.name.encode()))
        self.root = ctypes.c_ulong(libx11.XDefaultRootWindow(self.display))

    def close(self):
        self.server.terminate()
        self.server.wait()

    def find_window(self, size):
        """The rectangle (x, y, width, height) of the first visible window that is at least so
        large, or None."""
        unused = ctypes.c_ulong()
        children = ctypes.POINTER(ctypes.c_ulong)()
        count = ctypes.c_uint()
        libx11.XQueryTree(self.display, self.root, ctypes.byref(unused), ctypes.byref(unused),
                          ctypes.byref(children), ctypes.byref(count))
        found = None
        for i in range(count.value):
            attributes = Attributes()
            if not libx11.XGetWindowAttributes(self.display, ctypes.c_ulong(children[i]),
                                               ctypes.byref(attributes)):
                continue
            if (attributes.map_state == self.VIEWABLE and attributes.width >= size[0] and
                    attributes.height >= size[1]):
                found = (attributes.x, attributes.y, attributes.width, attributes.height)
                break
        if count.value:
            libx11.XFree(children)
        return found

    def pixels(self, x, y, width, height, step=1):
        """The colours of each `step`th pixel of each `step`th row, or an empty list."""
        image = libx11.XGetImage(self.display, self.root, x, y, width, height, self.ALL_PLANES,
                                 self.Z_PIXMAP)
        if not image:
            return []
        values = [libx11.XGetPixel(ctypes.c_void_p(image), i, j) & 0xFFFFFF
                  for j in range(0, height, step) for i in range(0, width, step)]
        libx11.XDestroyImage(ctypes.c_void_p(image))
        return values

    def pixel(self, x, y):
        return (self.pixels(x, y, 1, 1) or [-1])[0]

    def click(self, x, y):
        libxtst.XTestFakeMotionEvent(self.display, 0, x, y, 0)
        libxtst.XTestFakeButtonEvent(self.display, 1, 1, 0)
        libxtst.XTestFakeButtonEvent(self.display, 1, 0, 0)
        libx11.XFlush(self.display)


def wait_for(what, reached):
    end = time.monotonic() + PATIENCE
    while not reached():
        if time.monotonic() > end:
            sys.exit(f"{what}: not in {PATIENCE:.0f} s")
        time.sleep(0.002)
