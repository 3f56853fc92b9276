#!/usr/bin/env python3
"""Writes every complete private section of a 188-byte transport stream to
OUTDIR, one file per distinct section (seeds for the table entries)."""
import hashlib
import os
import sys


def sections(stream):
    pending = {}  # PID -> bytes of the sections being assembled
    for offset in range(0, len(stream) - 187, 188):
        packet = stream[offset:offset + 188]
        if packet[0] != 0x47 or packet[1] & 0x80:
            continue
        pid = ((packet[1] & 0x1F) << 8) | packet[2]
        control = (packet[3] >> 4) & 0x3
        if pid == 0x1FFF or not control & 0x1:
            continue
        payload = packet[4:]
        if control & 0x2:
            payload = payload[1 + payload[0]:]
        if not payload:
            continue
        if packet[1] & 0x40:
            pointer = payload[0]
            if pid in pending:
                found, _ = take(pending[pid] + payload[1:1 + pointer])
                yield from found
            pending[pid] = bytearray(payload[1 + pointer:])
        elif pid in pending:
            pending[pid] += payload
        else:
            continue
        found, pending[pid] = take(pending[pid])
        yield from found


def take(buffer):
    """The complete sections at the front of buffer, and what follows them
    (nothing after stuffing)."""
    found = []
    while len(buffer) >= 3 and buffer[0] != 0xFF:
        length = 3 + (((buffer[1] & 0x0F) << 8) | buffer[2])
        if length > len(buffer):
            break
        found.append(bytes(buffer[:length]))
        buffer = buffer[length:]
    return found, buffer if not buffer or buffer[0] != 0xFF else bytearray()


def main():
    if len(sys.argv) != 3:
        sys.exit("usage: sample_sections.py STREAM.ts OUTDIR")
    with open(sys.argv[1], "rb") as f:
        stream = f.read()
    os.makedirs(sys.argv[2], exist_ok=True)
    seen = set()
    for section in sections(stream):
        digest = hashlib.sha1(section).hexdigest()[:16]
        if digest not in seen:
            seen.add(digest)
            with open(os.path.join(sys.argv[2], digest), "wb") as out:
                out.write(section)
    print(f"{len(seen)} distinct sections")


if __name__ == "__main__":
    main()
