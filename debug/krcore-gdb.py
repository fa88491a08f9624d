"""How gdb shows the values of KrCore. Loaded by itself with the installed library, or by `source`.

Every printer reads memory and calls nothing in the program, so it works on a core file too. What is broken is shown as
`<broken: why>` in its place; nothing here raises.
"""

import datetime
import math
import struct
import sys

import gdb
import gdb.printing
import gdb.types

VT_BSTR, VT_VARIANT, VT_ARRAY, VT_BYREF = 8, 12, 0x2000, 0x4000

POINTER = "Q"
UNKNOWN_CLASS = ("There is no member", "No type named", "No struct type named")
LARGEST_DIMENSIONS = 64
FIRST_DAY, LAST_DAY = -657434, 2958465  # 1 January 100, 31 December 9999
ZERO_DATE = datetime.date(1899, 12, 30)
SECONDS_PER_DAY = 86400


class Broken(Exception):
    """What is read cannot be an object."""


def marked(text_of):
    """`text_of` with a marker in place of whatever goes wrong in it: a printer meets any bits that a program can hold."""

    def text_or_marker(*arguments):
        try:
            return text_of(*arguments)
        except Exception as failure:
            is_unknown = str(failure).startswith(UNKNOWN_CLASS)
            return "<no debug information of this class>" if is_unknown else f"<broken: {failure}>"

    return text_or_marker


def read(address, size):
    return bytes(gdb.selected_inferior().read_memory(address, size))


def shown_units():
    """How many units of a text the user wants to see."""
    return gdb.parameter("print elements") or sys.maxsize


def escaped(character):
    """The character, or an escape for what has no shape and for what the terminal cannot show."""
    if character in '"\\':
        return "\\" + character
    if character == "\0":
        return "\\0"
    if character.isprintable() and character.encode(gdb.host_charset(), "ignore"):
        return character
    return character.encode("unicode_escape").decode()


def escaped_byte(character):
    """The same in a text of bytes, where "surrogateescape" marks the bytes that are no UTF-8."""
    return f"\\x{ord(character) - 0xDC00:02x}" if "\udc80" <= character <= "\udcff" else escaped(character)


def text_at(address, length, unit_size):
    """`length` units from `address` on, at most as many as the user wants to see."""
    shown = min(length, shown_units())
    units = read(address, shown * unit_size) if shown else b""
    if unit_size == 1:
        characters = map(escaped_byte, units.decode("utf-8", "surrogateescape"))
    else:
        characters = map(escaped, units.decode("utf-16-le", "surrogatepass"))
    return '"' + "".join(characters) + '"' + ("..." if shown < length else "")


@marked
def text_of_string(value):
    """A `CString` or `CStringA`: its block, with the length, stands in front of its units."""
    unit = value.type.strip_typedefs().template_argument(0)
    units = value["m_text"]
    if not int(units):
        raise Broken("no text")
    block_type = gdb.lookup_type(f"kr::detail::TextBlock<{unit}>")
    block = gdb.Value(int(units) - block_type.sizeof).cast(block_type.pointer())
    length, capacity = int(block["length"]), int(block["capacity"])
    if not 0 <= length <= capacity:
        raise Broken(f"a length of {length}")
    return text_at(int(units), length, unit.sizeof)


@marked
def text_of_bstr(address):
    """A `BSTR`: its length in bytes stands in front, a zero unit behind."""
    if not address:
        return "null"
    length = struct.unpack("<I", read(address - 4, 4))[0]
    if read(address + length, 2) != b"\0\0":
        raise Broken(f"no zero behind {length} bytes")
    return text_at(address, length // 2, 2)


@marked
def text_of_bstr_t(value):
    """A `_bstr_t`: the text comes first in the data that copies share."""
    data = int(value["m_data"])
    return text_of_bstr(struct.unpack("<Q", read(data, 8))[0]) if data else "null"


@marked
def text_of_date(date):
    """Days since 30 December 1899 by the calendar, to the second; the fraction counts forward for negative days too."""
    if not FIRST_DAY - 1 < date < LAST_DAY + 1:
        raise Broken(f"{date!r} is outside the calendar")
    day = int(date)
    seconds = int(abs(date - day) * SECONDS_PER_DAY + 0.5 + 1e-6)
    day, seconds = day + seconds // SECONDS_PER_DAY, seconds % SECONDS_PER_DAY
    if day > LAST_DAY:
        raise Broken(f"{date!r} is outside the calendar")
    clock = f"{seconds // 3600:02}:{seconds // 60 % 60:02}:{seconds % 60:02}"
    return f"{ZERO_DATE + datetime.timedelta(day)} {clock}"


@marked
def text_of_moment(value):
    """A `COleDateTime`: the date, or the status where that is not valid."""
    status = name_of(value["m_status"])
    return text_of_date(float(value["m_dt"])) if status == "valid" else status


@marked
def text_of_currency(value):
    status = name_of(value["m_status"])
    return text_of_amount(int(value["m_cur"]["int64"])) if status == "valid" else status


def text_of_amount(amount):
    sign = "-" if amount < 0 else ""
    return f"{sign}{abs(amount) // 10000}.{abs(amount) % 10000:04}"


def text_of_bool(bits):
    return {0: "false", -1: "true"}.get(bits, hex(bits & 0xFFFF))


def text_of_address(address):
    return hex(address) if address else "null"


# What a variant's tag is called, how its bytes are read, how they are shown.
TAGS = {
    0: ("VT_EMPTY", None, None),
    1: ("VT_NULL", None, None),
    2: ("VT_I2", "h", str),
    3: ("VT_I4", "i", str),
    4: ("VT_R4", "f", lambda number: f"{number:.9g}"),
    5: ("VT_R8", "d", repr),
    6: ("VT_CY", "q", text_of_amount),
    7: ("VT_DATE", "d", text_of_date),
    VT_BSTR: ("VT_BSTR", POINTER, text_of_bstr),
    9: ("VT_DISPATCH", POINTER, text_of_address),
    10: ("VT_ERROR", "I", lambda code: f"0x{code:08X}"),
    11: ("VT_BOOL", "h", text_of_bool),
    VT_VARIANT: ("VT_VARIANT", POINTER, text_of_address),
    13: ("VT_UNKNOWN", POINTER, text_of_address),
    16: ("VT_I1", "b", str),
    17: ("VT_UI1", "B", str),
    18: ("VT_UI2", "H", str),
    19: ("VT_UI4", "I", str),
    20: ("VT_I8", "q", str),
    21: ("VT_UI8", "Q", str),
    22: ("VT_INT", "i", str),
    23: ("VT_UINT", "I", str),
    24: ("VT_VOID", POINTER, text_of_address),
    26: ("VT_PTR", POINTER, text_of_address),
    65: ("VT_BLOB", POINTER, text_of_address),
}


def name_of_tag(tag):
    kind = tag & ~(VT_ARRAY | VT_BYREF)
    words = [name for bit, name in ((VT_ARRAY, "VT_ARRAY"), (VT_BYREF, "VT_BYREF")) if tag & bit]
    return "|".join(words + [TAGS[kind][0] if kind in TAGS else f"vt {kind}"])


@marked
def text_of_bytes(tag, content):
    """The value with that tag in these bytes."""
    _, code, shown_by = TAGS.get(tag, (None, POINTER, text_of_address))
    return shown_by(struct.unpack("<" + code, content[: struct.calcsize(code)])[0])


@marked
def text_of_variant(tag, content):
    """Tag and value of a variant whose eight bytes of value these are."""
    name = name_of_tag(tag)
    if tag in TAGS and not TAGS[tag][1]:
        return name
    if tag & VT_ARRAY and not tag & VT_BYREF:
        return f"{name} {text_of_array(tag, array_in(content))}"
    return f"{name} {text_of_bytes(tag, content)}"


def array_in(content):
    return gdb.Value(struct.unpack("<Q", content)[0]).cast(gdb.lookup_type("SAFEARRAY").pointer())


def element_size(kind):
    code = TAGS.get(kind, (None, None))[1]
    if not code:
        raise Broken(f"elements of {name_of_tag(kind)}")
    return 16 if kind == VT_VARIANT else struct.calcsize(code)


def counts_of(tag, array):
    """The elements in each dimension, the first dimension first."""
    dimensions, size = int(array["cDims"]), int(array["cbElements"])
    if not 1 <= dimensions <= LARGEST_DIMENSIONS:
        raise Broken(f"an array of {dimensions} dimensions")
    if size != element_size(tag & ~VT_ARRAY):
        raise Broken(f"elements of {size} bytes")
    last = array["rgsabound"][0].address
    return [int((last + index)["cElements"]) for index in reversed(range(dimensions))]


@marked
def text_of_array(tag, array):
    """The counts of an array's dimensions; its elements are children."""
    if not int(array):
        return "null"
    return "[" + " x ".join(str(count) for count in counts_of(tag, array)) + "]"


def elements_of(variant):
    """The elements as they stand in memory, the first index running fastest, up to the first that is not there. None where the array
    itself is not there, which the text of the variant tells."""
    try:
        tag, array = int(variant["vt"]), array_in(content_of(variant))
        has_elements = tag & VT_ARRAY and not tag & VT_BYREF and int(array)
        count = math.prod(counts_of(tag, array)) if has_elements else 0
    except Exception:
        return
    kind = tag & ~VT_ARRAY
    for index in range(count):
        try:
            content = read(int(array["pvData"]) + index * element_size(kind), element_size(kind))
        except gdb.MemoryError as failure:
            yield f"<broken: {failure}>"
            return
        if kind == VT_VARIANT:
            yield text_of_variant(struct.unpack("<H", content[:2])[0], content[8:])
        else:
            yield text_of_bytes(kind, content)


def content_of(variant):
    return int(variant["ullVal"]).to_bytes(8, "little")


def name_of(enumerator):
    """The enumerator without its class, or the number of one that has no name."""
    names = {field.enumval: field.name for field in enumerator.type.strip_typedefs().fields()}
    number = int(enumerator)
    return names.get(number, str(number)).split("::")[-1]


@marked
def text_of_kr_variant(value):
    """A `CKrVariant`: what the value means, then what bytes it holds."""
    return f"{name_of(value['m_type'])} {text_of_variant(int(value['vt']), content_of(value))}"


@marked
def text_of_children(children):
    """How many there are: none where the pointer to them is null. Of every standard library's vector the first two pointers are begin
    and end."""
    holder = next(pointers_in(children))
    if not holder:
        return "0 children"
    begin, end = list(pointers_in(holder.dereference()["m_nodes"]))[:2]
    size = begin.type.target().sizeof
    count, rest = divmod(int(end) - int(begin), size)
    if count < 0 or rest:
        raise Broken("children that are no list")
    return f"{count} child" if count == 1 else f"{count} children"


def pointers_in(value):
    for field in value.type.strip_typedefs().fields():
        kind = field.type.strip_typedefs().code
        if kind == gdb.TYPE_CODE_PTR:
            yield value[field]
        elif kind == gdb.TYPE_CODE_STRUCT:
            yield from pointers_in(value[field])


@marked
def text_of_property(value):
    name, variant = text_of_string(value["m_name"]), text_of_kr_variant(value["m_value"])
    return f"{name} {name_of(value['m_type'])} = {variant}, {text_of_children(value['m_children'])}"


@marked
def text_of_color(value):
    """The fields that the colour space gives a meaning; alpha where there is any."""
    space = int(value["m_colorSpace"])
    index = int(value["m_colorIndex"])
    red, green, blue = (int(value[name]) for name in ("m_red", "m_green", "m_blue"))
    text = {
        1: f"RGB({red},{green},{blue})",
        3: f"index {index}" + (", by layer" if index == 256 else ""),
        11: "inherited",
        12: "no colour",
    }.get(space, f"colour space {space}")
    alpha = int(value["m_alpha"])
    return text + (f", alpha {alpha}" if alpha or int(value["m_alphaFlag"]) else "")


class Printer:
    """Shows a value by one text."""

    def __init__(self, text_of, value):
        self.text_of = text_of
        self.value = value

    def to_string(self):
        return self.text_of(self.value)


class VariantPrinter(Printer):
    """Shows the elements of an array too."""

    def children(self):
        for index, text in enumerate(elements_of(self.value)):
            yield f"[{index}]", text

    def display_hint(self):
        return "array"


PRINTERS = {
    "CStringT": (Printer, text_of_string),
    "_bstr_t": (Printer, text_of_bstr_t),
    "tagVARIANT": (VariantPrinter, lambda value: text_of_variant(int(value["vt"]), content_of(value))),
    "COleVariant": (VariantPrinter, lambda value: text_of_variant(int(value["vt"]), content_of(value))),
    "CKrVariant": (VariantPrinter, text_of_kr_variant),
    "COleDateTime": (Printer, text_of_moment),
    "COleCurrency": (Printer, text_of_currency),
    "CKrDateTimeBase": (Printer, lambda value: text_of_moment(value["m_value"])),
    "CKrDate": (Printer, lambda value: text_of_moment(value["m_value"])),
    "CKrTime": (Printer, lambda value: text_of_moment(value["m_value"])),
    "CKrDateTime": (Printer, lambda value: text_of_moment(value["m_value"])),
    "CKrColor": (Printer, text_of_color),
    "CKrProperty": (Printer, text_of_property),
}


class Printers(gdb.printing.PrettyPrinter):
    """Finds the printer of a value by the name of its class, that of a `BSTR` by the name it is declared with."""

    def __init__(self):
        super().__init__("krcore")

    def __call__(self, value):
        if value.type.name == "BSTR":
            return Printer(lambda text: text_of_bstr(int(text)), value)
        name = gdb.types.get_basic_type(value.type).tag or ""
        kind, text_of = PRINTERS.get(name.split("<")[0], (None, None))
        return kind(marked(text_of), value) if kind else None


gdb.printing.register_pretty_printer(gdb.current_objfile(), Printers(), replace=True)
