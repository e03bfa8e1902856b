"""The loaded library: its functions with their types, its locks, its string objects."""

from __future__ import annotations

import ctypes
import os
import struct
import sys
import threading
from typing import Any, Callable, Dict, Iterable, List, NamedTuple, Optional, Union, cast

from ._description import EXCLUSIVE_RESOURCES, SIGNATURES
from ._results import LibraryError

Path = Union[str, "os.PathLike[str]"]

WINDOWS = sys.platform == "win32"
DEFAULT_LIBRARY = "VeskSondrel64.dll" if WINDOWS else "libVeskSondrel64.so"

# UTF-16 on every platform; ctypes.c_wchar has four bytes outside Windows.
VeskChar16 = ctypes.c_uint16

TYPES: Dict[str, Any] = {
    "none": None,
    "uint8": ctypes.c_uint8,
    "int32": ctypes.c_int32,
    "uint32": ctypes.c_uint32,
    "float": ctypes.c_float,
    "double": ctypes.c_double,
    "bytes": ctypes.POINTER(ctypes.c_uint8),
    "text": ctypes.POINTER(ctypes.c_char),
    "wide_text": ctypes.POINTER(VeskChar16),
    "out_uint32": ctypes.POINTER(ctypes.c_uint32),
}

STRING_OBJECT_SIZE = 32


class StringObject(NamedTuple):
    """A string object of C++, taken apart."""

    address: int
    size: int
    block: int
    """To be freed; 0 for a string that is within the object."""


def take_apart(layout: str, address: int, content: bytes) -> StringObject:
    """By the layout of the library's compiler: "libstdc++" or "msvc"."""
    first, second, third, fourth = struct.unpack("<4Q", content)
    if layout == "msvc":  # 16 bytes of small form or a pointer, size, capacity
        in_block = fourth > 15
        return StringObject(first if in_block else address, third, first if in_block else 0)
    # pointer, size, 16 bytes of small form or capacity
    return StringObject(first, second, 0 if first == address + 16 else first)


def version_string(resource: bytes, key: str) -> str:
    """A string of a version resource: three words, the key with its terminator, padding to four bytes, the value."""
    encoded = (key + "\0").encode("utf-16-le")
    place = resource.find(encoded)
    while place > 0 and place % 2:
        place = resource.find(encoded, place + 1)
    if place < 0:
        return ""
    start = (place + len(encoded) + 3) // 4 * 4
    end = start
    while end + 1 < len(resource) and resource[end : end + 2] != b"\0\0":
        end += 2
    return resource[start:end].decode("utf-16-le", "replace")


def _kernel32() -> Any:
    return getattr(ctypes, "WinDLL")("kernel32")  # which ctypes has on Windows only


def version_resource(handle: int) -> bytes:
    """Of a loaded DLL; empty without one."""
    kernel = _kernel32()
    pointer = ctypes.c_void_p
    kernel.FindResourceW.restype = kernel.LoadResource.restype = kernel.LockResource.restype = pointer
    kernel.FindResourceW.argtypes = (pointer, pointer, pointer)
    kernel.LoadResource.argtypes = kernel.SizeofResource.argtypes = (pointer, pointer)
    kernel.LockResource.argtypes = (pointer,)
    kernel.SizeofResource.restype = ctypes.c_uint32
    resource = kernel.FindResourceW(handle, 1, 16)  # 16: RT_VERSION
    loaded = kernel.LoadResource(handle, resource) if resource else None
    if not loaded:
        return b""
    return ctypes.string_at(kernel.LockResource(loaded), kernel.SizeofResource(handle, resource))


def free_function(layout: str) -> Callable[[int], Any]:
    """Frees the block of a string object as the library's own runtime does."""
    free: Any
    if not WINDOWS:
        free = ctypes.CDLL("libstdc++.so.6")._ZdlPv  # operator delete
    elif layout == "msvc":
        kernel = _kernel32()
        kernel.GetProcessHeap.restype = ctypes.c_void_p
        kernel.HeapFree.argtypes = (ctypes.c_void_p, ctypes.c_uint32, ctypes.c_void_p)
        heap = kernel.GetProcessHeap()  # the heap of the release runtime
        return lambda block: kernel.HeapFree(heap, 0, block)
    else:
        free = ctypes.CDLL("msvcrt").free  # the runtime that the library imports
    free.restype, free.argtypes = None, (ctypes.c_void_p,)
    return cast(Callable[[int], Any], free)


class Native:
    """One loaded library. Calls that must not overlap wait for each other."""

    def __init__(self, path: str, library: Any):
        self.path = path
        self.sessions = 0
        """Those that were opened through this package."""
        self._functions: Dict[str, Any] = {}
        self._locks = {name: threading.Lock() for name in EXCLUSIVE_RESOURCES}
        for name, (result, arguments) in SIGNATURES.items():
            try:
                function = getattr(library, name)
            except AttributeError:
                raise LibraryError(f"{path} does not export {name}") from None
            if result == "string":  # the caller passes the place of the object
                function.restype, function.argtypes = ctypes.c_void_p, (ctypes.c_void_p,)
            else:
                function.restype, function.argtypes = TYPES[result], tuple(TYPES[each] for each in arguments)
            self._functions[name] = function
        resource = version_resource(library._handle) if WINDOWS else b""
        self._layout = version_string(resource, "StringLayout") or "libstdc++"
        self._free = free_function(self._layout)

    def call(self, name: str, locks: Iterable[str], *arguments: Any) -> Any:
        """The locks come in the order of the description, so that no two calls wait for each other."""
        taken: List[threading.Lock] = []
        try:
            for lock in locks:
                self._locks[lock].acquire()
                taken.append(self._locks[lock])
            return self._functions[name](*arguments)
        finally:
            for each in reversed(taken):
                each.release()

    def call_for_string(self, name: str, locks: Iterable[str]) -> str:
        """Of an export that returns a string object."""
        memory = ctypes.create_string_buffer(STRING_OBJECT_SIZE)
        address = ctypes.addressof(memory)
        self.call(name, locks, address)
        found = take_apart(self._layout, address, memory.raw)
        try:
            return ctypes.string_at(found.address, found.size).decode("utf-8", "replace")
        finally:
            if found.block:
                self._free(found.block)


_loaded: Dict[int, Native] = {}
_loading = threading.Lock()


def load(path: Optional[Path]) -> Native:
    """Loading a file twice gives the same object, whose locks hold for all users of it in this process."""
    name = DEFAULT_LIBRARY if path is None else os.fspath(path)
    if path is not None and os.path.dirname(name):
        name = os.path.abspath(name)
    with _loading:
        try:
            library = ctypes.CDLL(name)
        except OSError as problem:
            raise LibraryError(f"{name}: {problem}") from problem
        return _loaded.setdefault(library._handle, Native(name, library))


def wide_text(buffer: "ctypes.Array[ctypes.c_uint16]") -> str:
    """Up to the terminator; a surrogate without its partner becomes U+FFFD."""
    units = memoryview(buffer).cast("B").cast("H")
    length = next((place for place, unit in enumerate(units) if unit == 0), len(units))
    return bytes(units[:length]).decode("utf-16-le", "replace")
