"""Writes measurement files field by field, independently of the program's own code."""

import struct
from dataclasses import dataclass, field


def i16(value):
    return struct.pack("<h", value)


def i32(value):
    return struct.pack("<i", value)


def f32(value):
    return struct.pack("<f", value)


def f64(value):
    return struct.pack("<d", value)


def counted(text):
    data = text.encode("cp1252")
    return i16(len(data)) + data


def fixed(text, width):
    return text.encode("cp1252").ljust(width, b"\0")[:width]


@dataclass
class Channel:
    name: str
    unit: str
    values: list
    interval: float = 0.5
    comment: str = "Kommentar"
    fixed_blocks: int = 0
    day: float = 44260.25


def parameters(channel, number):
    """The 152 bytes of a channel's acquisition parameters."""
    record = f64(44260.5) + f64(channel.interval)
    record += i16(101) + i16(102) + i16(103) + i16(104)
    record += f32(1.5) + f32(-2.25) + f32(3.0) + f32(0.0) + f32(0.5) + f32(10.0) + f32(20.5)
    record += fixed("V-%04d" % number, 32) + fixed(channel.unit, 8) + fixed("mV/V", 8)
    record += i16(number) + i16(0) + i16(5003) + i16(7) + f32(2.05) + f32(4.0) + i16(214) + i16(8)
    record += i16(-5) + bytes([channel.fixed_blocks, 0xA5]) + f32(0.125) + bytes([0x5A]) + b"\0\0\0"
    record += i32(-123456) + fixed("Text", 15) + b"\0"
    assert len(record) == 152
    return record


def extras():
    return bytes([2, 1, 2]) + f64(1.25) + f64(-0.5) + i16(0) + counted("")


def standard_file(file_id, channels, padded_length=0, reduce_block=0):
    newest = file_id == 7001

    def since(first):
        return newest or file_id >= first

    head = i16(file_id)
    if since(5009):
        head += i32(0)
    if since(5005):
        head += counted("Prüfstand 7")
    if since(5011):
        head += counted("") * 31 + counted("vorbehalten")
    head += i16(len(channels))
    offsets_place = len(head) + 4
    points_places = []
    if since(5010):
        head += i32(padded_length) + i32(0) * len(channels) + i32(reduce_block)
    for number, channel in enumerate(channels, 1):
        if since(5006):
            head += i16(number)
        points_places.append(len(head))
        head += i32(len(channel.values)) + counted(channel.name) + counted(channel.unit)
        if not since(5010):
            head += counted("05.03.2021") + counted("12:30:00")
        head += counted(channel.comment)
        if since(5007):
            head += i16(0) + i16(8)
        if since(5010):
            head += f64(channel.day)
        if since(5008):
            head += i32(152) + parameters(channel, number)
        if since(5009):
            head += extras()
        if since(5012):
            head += i32(3) + b"xyz"
    if since(5010):
        offsets = b"".join(i32(place) for place in points_places)
        head = head[:offsets_place] + offsets + head[offsets_place + len(offsets):]
    if since(5009):
        head = head[:2] + i32(len(head)) + head[6:]
    for channel in channels:
        head += struct.pack("<%dd" % len(channel.values), *channel.values)
        head += f64(0) * max(0, padded_length - len(channel.values))
    return head


def block_file(file_id, channels, block_points=100):
    head = i16(file_id) + i16(1) + i32(len(channels))
    offset_place = len(head)
    if file_id == 5056:
        head += i32(0) + counted("Blockdatei")
    for number, channel in enumerate(channels, 1):
        head += i16(number) + counted(channel.name) + counted(channel.unit)
        if file_id == 5056:
            head += counted(channel.comment) + f64(channel.day)
        else:
            head += counted("05.03.2021") + counted("12:30:00")
        head += i32(152) + parameters(channel, number)
    if file_id == 5056:
        head = head[:offset_place] + i32(len(head)) + head[offset_place + 4:]
    data = b""
    for start in range(0, max(len(channel.values) for channel in channels), block_points):
        for channel in channels:
            part = channel.values[start:start + block_points]
            if file_id != 5055:
                data += i32(len(part))
            data += struct.pack("<%dd" % len(part), *part)
    return head + data


@dataclass
class Entry:
    """One entry of a recording's channel table."""

    channel: int
    mask: int = 1
    unit: str = "V"
    name: str = ""
    scale: float = 30000.0  # a raw sample of 16 bits is its own value
    offset: float = 0.0

    def has_settings(self):
        return self.channel < 17

    def settings(self):
        return ('"%s"' % self.name).encode("cp1252").ljust(47) + bytes(225 - 47)


RECORDER_DATE = "Fri Mar 05 12:34:56 2021"


def recorder_file(file_id, entries, row_count, data, sample_format=1255, rate_code=6308, reduce_factor=0):
    """A recording; `data` are the bytes of its data part."""
    header = 32 + 20 * len(entries)
    blocks = b"".join(entry.settings() for entry in entries if entry.has_settings())
    # The date is looked for behind a block for each entry but the carry of the time.
    blocks = blocks.ljust(225 * sum(entry.channel != 18 for entry in entries), b"\0")
    offset = header + len(blocks) + 26 + 160
    places = i32(reduce_factor) + i32(offset) if file_id in (6002, 6012) else i32(offset) + i32(0)
    table = b"".join(i32(entry.channel) + f32(entry.scale) + f32(entry.offset) +
                     entry.unit.encode("cp1252").ljust(4) + i32(entry.mask) for entry in entries)
    fields = i32(file_id) + i32(len(entries)) + i32(0) + i32(row_count) + i32(sample_format) + i32(rate_code)
    return (fields + places + table + blocks + fixed(RECORDER_DATE, 26) + "Prüfstand 3".encode("cp1252").ljust(160) +
            data)
