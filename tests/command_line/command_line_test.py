"""Runs the built program as a user of the shell would. Usage: command_line_test.py PROGRAM [unittest arguments]"""

import json
import os
import pty
import resource
import struct
import subprocess
import sys
import tempfile
import unittest

from measurement_files import (RECORDER_DATE, Channel, Entry, block_file, fixed, i16, i32, recorder_file,
                               standard_file)

PROGRAM = ""

STANDARD_IDS = list(range(5004, 5013)) + [7001]
BLOCK_IDS = [5003, 5055, 5056]


def trendaro(*arguments):
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
    return subprocess.run([PROGRAM, *map(str, arguments)], capture_output=True, timeout=60, env=environment)


def two_channels(points=250):
    return [
        Channel("Drehzahl", "1/min", [1000 + 0.25 * k for k in range(points)]),
        Channel("Öltemperatur", "°C", [80 - 1e-3 * k * k for k in range(points)], interval=2.0),
    ]


def raw(values):
    return struct.pack("<%dd" % len(values), *values)


def content(path):
    with open(path, "rb") as file:
        return file.read()


class WithFolder(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def file(self, name, content):
        path = os.path.join(self.folder, name)
        with open(path, "wb") as out:
            out.write(content)
        return path


class StandardFiles(WithFolder):
    def test_every_id_gives_its_values_bit_by_bit(self):
        channels = two_channels()
        for file_id in STANDARD_IDS:
            with self.subTest(file_id):
                path = self.file("lauf.bin", standard_file(file_id, channels))
                for number, channel in enumerate(channels, 1):
                    self.assertEqual(trendaro("values", "--raw", path, number).stdout, raw(channel.values))

    def test_every_id_is_described(self):
        channels = two_channels()
        for file_id in STANDARD_IDS:
            with self.subTest(file_id):
                path = self.file("lauf.bin", standard_file(file_id, channels))
                result = trendaro("info", "--json", path, 2)
                self.assertEqual(result.returncode, 0, result.stderr)
                found = json.loads(result.stdout)
                self.assertEqual((found["status"], found["file"], found["id"]), (0, path, file_id))
                self.assertEqual([c["name"] for c in found["channels"]], ["Drehzahl", "Öltemperatur"])
                self.assertEqual([c["unit"] for c in found["channels"]], ["1/min", "°C"])
                self.assertEqual([c["points"] for c in found["channels"]], [250, 250])
                self.assertEqual([c["points_estimate"] for c in found["channels"]], [None, None])
                with_record = file_id >= 5008
                self.assertEqual([c["interval_ms"] for c in found["channels"]], [0.5, 2] if with_record else [0, 0])
                if with_record:
                    self.assertEqual(found["channel"]["params"]["AmplifierSerial"], "V-0002")
                    self.assertEqual(found["channel"]["params"]["ParamWord2"], -123456)
                if file_id >= 5009:
                    self.assertEqual(found["channel"]["extras"]["Coefficients"], [1.25, -0.5])

    def test_values_read_back_from_their_text(self):
        values = [0.1, -1e-300, 1 / 3, 5e-324, 1.7976931348623157e308, -0.0]
        path = self.file("lauf.bin", standard_file(5012, [Channel("a", "V", values)]))
        lines = trendaro("values", path, 1).stdout.decode().splitlines()
        self.assertEqual(raw([float(line) for line in lines]), raw(values))

    def test_values_that_are_no_numbers_have_their_words(self):
        values = [float("nan"), float("inf"), float("-inf")]
        path = self.file("lauf.bin", standard_file(5012, [Channel("a", "V", values)]))
        self.assertEqual(trendaro("values", path, 1).stdout, b"nan\ninf\n-inf\n")

    def test_cut_data_give_what_is_there_and_fail(self):
        whole = standard_file(5010, [Channel("a", "V", [1.0, 2.0, 3.0])])
        path = self.file("lauf.bin", whole[:-9])
        result = trendaro("values", path, 1)
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stdout, b"1\n")
        self.assertIn("Fehler beim Lesen der Daten aufgetreten!", result.stderr.decode())

    def test_channel_that_is_not_there_prints_nothing(self):
        path = self.file("lauf.bin", standard_file(5010, two_channels()))
        for channel in (0, 3, 32767):
            result = trendaro("values", path, channel)
            self.assertEqual((result.returncode, result.stdout, result.stderr), (0, b"", b""))

    def test_padding_skips_bytes_and_not_samples(self):
        first = Channel("a", "V", [float(k) for k in range(4)])
        second = Channel("b", "V", [float(10 + k) for k in range(4)])
        path = self.file("lauf.bin", standard_file(5010, [first, second], padded_length=4))
        self.assertEqual(trendaro("values", path, 2).stdout, b"10\n11\n12\n13\n")
        second.values = second.values[:2]
        content = standard_file(5010, [first, second], padded_length=4)
        data = content[len(content) - 8 * 8:]
        path = self.file("kurz.bin", content)
        # The second channel's data start at 4 x 8 bytes; two bytes more are skipped.
        self.assertEqual(trendaro("values", "--raw", path, 2).stdout, data[34:50])


class BlockFiles(WithFolder):
    def test_every_id_gives_its_values_bit_by_bit(self):
        channels = two_channels(300)
        for file_id in BLOCK_IDS:
            with self.subTest(file_id):
                path = self.file("lauf.dat", block_file(file_id, channels))
                for number, channel in enumerate(channels, 1):
                    self.assertEqual(trendaro("values", "--raw", path, number).stdout, raw(channel.values))

    def test_points_are_unknown_and_estimated(self):
        channels = two_channels(300)
        for file_id in BLOCK_IDS:
            with self.subTest(file_id):
                content = block_file(file_id, channels)
                found = json.loads(trendaro("info", "--json", self.file("lauf.dat", content)).stdout)
                estimate = round((len(content) - 152) / (2 * 8) - 1)
                self.assertEqual([c["points_estimate"] for c in found["channels"]], [estimate, estimate])
                self.assertEqual([c["points"] for c in found["channels"]], [-1, -1])


class Recordings(WithFolder):
    def test_every_id_gives_its_columns(self):
        rows = [(k, -2 * k, 7, 1000 - k) for k in range(1203)]
        columns = [[float(value) for value in column] for column in zip(*rows)]
        entries = [Entry(3, mask=0b11, name="Kraft;links"), Entry(7, mask=0b1100, name="Weg", unit="mm")]
        by_rows = b"".join(struct.pack("<4f", *row) for row in rows)
        for file_id in (6001, 6002, 6011, 6012):
            with self.subTest(file_id):
                data = by_rows if file_id < 6010 else b"".join(raw(column) for column in columns)
                path = self.file("lauf.MEA", recorder_file(file_id, entries, len(rows), data, sample_format=1257,
                                                           reduce_factor=50))
                for number, column in enumerate(columns, 1):
                    self.assertEqual(trendaro("values", "--raw", path, number).stdout, raw(column))
                found = json.loads(trendaro("info", "--json", path, 3).stdout)
                self.assertEqual(found["id"], file_id)
                self.assertEqual(found["channel_count"], 4 if file_id == 6002 else 2)
                self.assertEqual(found["reduce_factor"], 50 if file_id in (6002, 6012) else 0)
                self.assertEqual([c["name"] for c in found["channels"]], ["Kraft", "Kraft", "Weg", "Weg"])
                self.assertEqual([c["points"] for c in found["channels"]], [1203] * 4)
                self.assertEqual(found["date"], RECORDER_DATE)
                self.assertEqual(found["comment"], "\0\0" + "Prüfstand 3".ljust(78))
                self.assertIsNone(found["channel"]["extras"])

    def test_time_is_summed_with_its_carry(self):
        entries = [Entry(1), Entry(17, unit="ms"), Entry(18, unit="ms", scale=30000.0 * 65536)]
        data = b"".join(struct.pack("<hHH", k, 65535 - k, k) for k in range(3))
        path = self.file("lauf.MEA", recorder_file(6001, entries, 3, data))
        values = [float(line) for line in trendaro("values", path, 2).stdout.split()]
        for k, value in enumerate(values):
            self.assertAlmostEqual(value / (65535 - k + 65536 * k), 1, delta=1e-6)
        found = json.loads(trendaro("info", "--json", path).stdout)
        self.assertEqual((found["channel_count"], len(found["channels"])), (2, 3))

    def test_section_is_a_recording_with_the_date_of_its_first_row(self):
        entries = [Entry(1), Entry(2)]
        rows = [struct.pack("<hh", k, -k) for k in range(900)]
        source = self.file("lauf.MEA", recorder_file(6001, entries, 900, b"".join(rows)))
        target = os.path.join(self.folder, "teil.MEA")
        result = trendaro("section", "--first", 500, "--count", 300, source, target)
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, b"", b""))
        # 500 rows at 100 Hz are 5 seconds.
        expected = recorder_file(6001, entries, 300, b"".join(rows[500:800]))
        expected = expected.replace(fixed(RECORDER_DATE, 26), fixed("05.03.2021 12:35:01", 26))
        self.assertEqual(content(target), expected)
        self.assertEqual(trendaro("section", "--first", 0, "--count", 1, source, target).returncode, 1)
        self.assertEqual(content(target), expected)


class Reduced(WithFolder):
    def setUp(self):
        super().setUp()
        self.samples = [float((k * 7919) % 1000) for k in range(1040)]
        self.source = self.file("lauf.bin", standard_file(5012, [Channel("a", "V", self.samples)]))
        self.target = os.path.join(self.folder, "lauf.REB")

    def expected(self):
        """Ten whole blocks of 100, and the rest of 40 as a block of its own."""
        values = []
        for begin in range(0, 1040, 100):
            block = self.samples[begin:begin + 100]
            low, high = min(block), max(block)
            values += [low, high] if block.index(low) < block.index(high) else [high, low]
        return standard_file(5012, [Channel("a", "V", values)], reduce_block=100)

    def test_blocks_become_pairs_in_order_of_occurrence(self):
        result = trendaro("reduce", self.source)
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, b"", b""))
        self.assertEqual(content(self.target), self.expected())

    def test_a_terminal_shows_the_progress(self):
        controller, terminal = pty.openpty()
        result = subprocess.run([PROGRAM, "reduce", self.source], stderr=terminal, timeout=60)
        os.close(terminal)
        shown = os.read(controller, 65536).decode()
        os.close(controller)
        self.assertEqual(result.returncode, 0)
        self.assertTrue(shown.endswith(" 100 %\r\n"), shown)

    def test_the_longest_file_of_the_system_is_a_failure_with_words(self):
        def short_files():
            resource.setrlimit(resource.RLIMIT_FSIZE, (400, 400))

        for call in (["reduce", self.source], ["values", self.source, "1"]):
            with open(os.path.join(self.folder, "ausgabe"), "wb") as output:
                result = subprocess.run([PROGRAM, *call], stdout=output, stderr=subprocess.PIPE, timeout=60,
                                        preexec_fn=short_files)
            self.assertEqual(result.returncode, 1, call)
            self.assertIn(b"Fehler", result.stderr)


class Failures(WithFolder):
    def test_missing_file(self):
        path = os.path.join(self.folder, "fehlt.bin")
        result = trendaro("info", "--json", path)
        self.assertEqual(result.returncode, 1)
        self.assertEqual(json.loads(result.stdout), {"status": -100, "file": path})
        self.assertTrue(result.stderr.endswith(b"\n"))

    def test_file_of_one_byte_and_unknown_ids(self):
        for content in (b"\x8c", i16(4711), i16(-5012), i32(6003), b""):
            path = self.file("lauf.bin", content)
            result = trendaro("info", "--json", path)
            self.assertEqual((result.returncode, json.loads(result.stdout)["status"]), (1, -1000))

    def test_files_cut_anywhere_end_in_bounded_time(self):
        for content in (standard_file(5012, two_channels(5)), block_file(5056, two_channels(5))):
            for length in range(0, len(content), 37):
                path = self.file("kurz.bin", content[:length])
                self.assertIn(trendaro("values", "--raw", path, 2).returncode, (0, 1))

    def test_wrong_calls(self):
        for call in (["info"], ["values", "x.bin"], ["values", "x.bin", "zwei"], ["--gibtsnicht"], ["render", "x.bin"],
                     ["reduce", "--factor", "5", "x.bin"], ["section", "--first", "0", "a", "b"]):
            result = trendaro(*call)
            self.assertEqual(result.returncode, 2, call)
            self.assertEqual(result.stdout, b"")
            self.assertTrue(result.stderr.endswith(b"\n"), call)

    def test_help_and_version(self):
        self.assertEqual(trendaro("--help").returncode, 0)
        self.assertIn(b"render", trendaro("--help").stdout)
        self.assertEqual(trendaro("--version").stdout[:9], b"Trendaro ")


class Pictures(WithFolder):
    def test_a_spike_of_one_sample_is_in_the_picture(self):
        values = [0.0] * 200000
        path = self.file("lauf.bin", standard_file(5010, [Channel("a", "V", values)]))
        values[123456] = 5.0
        with_spike = self.file("spitze.bin", standard_file(5010, [Channel("a", "V", values)]))
        flat, spiked = os.path.join(self.folder, "a.bmp"), os.path.join(self.folder, "b.bmp")
        for source, picture in ((path, flat), (with_spike, spiked)):
            result = trendaro("render", "--output", picture, "--size", "800x500", source)
            self.assertEqual(result.returncode, 0, result.stderr)
        self.assertNotEqual(content(flat), content(spiked))

    def test_every_ending_has_its_format(self):
        path = self.file("lauf.bin", standard_file(5010, two_channels()))
        for ending, start in (("png", b"\x89PNG"), ("bmp", b"BM"), ("jpg", b"\xff\xd8"), ("jpeg", b"\xff\xd8"),
                              ("svg", b"<?xml"), ("pdf", b"%PDF")):
            picture = os.path.join(self.folder, "bild." + ending)
            result = trendaro("render", "--output", picture, path + ":1")
            self.assertEqual(result.returncode, 0, result.stderr)
            self.assertEqual(content(picture)[:len(start)], start)

    def test_unwritable_picture_fails_with_words(self):
        path = self.file("lauf.bin", standard_file(5010, two_channels()))
        result = trendaro("render", "--output", "/gibtsnicht/bild.png", path)
        self.assertEqual((result.returncode, result.stdout), (1, b""))
        self.assertTrue(result.stderr.endswith(b"\n"))


if __name__ == "__main__":
    PROGRAM = os.path.abspath(sys.argv.pop(1))
    unittest.main()
