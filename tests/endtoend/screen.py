"""What stands on the screen of the X server: its picture as the server keeps it in a file, which
can be looked at while the program is too busy to answer anything."""

import os
import struct


class Screen:
    def __init__(self):
        self.path = os.path.join(os.environ["TALPENA_FRAMEBUFFER"], "Xvfb_screen0")

    def picture(self, x, y, width, height):
        """The pixels of a part, row after row, three bytes each."""
        with open(self.path, "rb") as file:
            data = file.read()
        header = struct.unpack(">25I", data[:100])
        start, stride = header[0] + 12 * header[19], header[12]
        screen_width, screen_height = header[4], header[5]
        x, y = max(x, 0), max(y, 0)
        width, height = min(width, screen_width - x), min(height, screen_height - y)
        rows = []
        for line in range(y, y + height):
            at = start + line * stride + 4 * x
            rows.append(data[at:at + 4 * width])
        return rows

    def colours(self, *part):
        """How many pixels there are of each colour."""
        count = {}
        for row in self.picture(*part):
            for at in range(0, len(row), 4):
                pixel = row[at:at + 3]
                count[pixel] = count.get(pixel, 0) + 1
        return count

    def has_text(self, *part):
        """Neither blank nor black: most of it one light colour, some of it dark."""
        count = self.colours(*part)
        pixels = sum(count.values())
        if not pixels or len(count) < 8:
            return False
        background = max(count, key=count.get)
        dark = sum(n for pixel, n in count.items() if max(pixel) < 100)
        return min(background) > 150 and count[background] < 0.98 * pixels and dark > 20
