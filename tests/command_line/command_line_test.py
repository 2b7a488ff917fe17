"""Runs the built program as a user of the shell would. Usage: command_line_test.py PROGRAM [unittest arguments]"""

import json
import os
import struct
import subprocess
import sys
import tempfile
import unittest

from measurement_files import Channel, block_file, i16, i32, standard_file

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
