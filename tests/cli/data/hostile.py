"""Writes files that are too large to be kept here: a PDF of 10,000 pages (a bill each) and a picture of 120 megapixels."""

import pathlib
import struct
import zlib


def pdf(pages, lines):
    text = "BT /F1 10 Tf 14 TL 40 380 Td " + " ".join(f"({line}) Tj T*" for line in lines) + " ET"
    kids = " ".join(f"{5 + n} 0 R" for n in range(pages))
    page = ("<< /Type /Page /Parent 2 0 R /MediaBox [0 0 300 420] /Contents 4 0 R "
            "/Resources << /Font << /F1 3 0 R >> >> >>")
    objects = ["<< /Type /Catalog /Pages 2 0 R >>", f"<< /Type /Pages /Kids [{kids}] /Count {pages} >>",
               "<< /Type /Font /Subtype /Type1 /BaseFont /Courier >>",
               f"<< /Length {len(text)} >>\nstream\n{text}\nendstream"] + [page] * pages
    parts, offsets, at = ["%PDF-1.4\n"], [], 9
    for number, content in enumerate(objects, 1):
        offsets.append(f"{at:010d} 00000 n \n")
        parts.append(f"{number} 0 obj\n{content}\nendobj\n")
        at += len(parts[-1])
    table = f"xref\n0 {len(objects) + 1}\n0000000000 65535 f \n" + "".join(offsets)
    return "".join(parts) + table + f"trailer\n<< /Size {len(objects) + 1} /Root 1 0 R >>\nstartxref\n{at}\n%%EOF\n"


def png(width, height):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    packer = zlib.compressobj(1)
    rows = b"".join(packer.compress(b"\0" + b"\xff" * width) for _ in range(height)) + packer.flush()
    header = struct.pack(">IIBBBBB", width, height, 8, 0, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", rows) + chunk(b"IEND", b"")


pathlib.Path("many.pdf").write_text(pdf(10_000, ["Udupi Tiffin Room", "Date: 14/10/2026", "Total 315.00"]))
pathlib.Path("huge.png").write_bytes(png(12_000, 10_000))
