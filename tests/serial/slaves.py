"""Drives for the tests: a scripted one on a pseudo-terminal, which misbehaves as it is told to, and one that nobody here
wrote (pymodbus) at the other end of a pair of terminals."""
import os, pathlib, select, subprocess, sys, threading, time, tty


def with_checksum(frame):
    crc = 0xFFFF
    for byte in frame:
        crc ^= byte
        for _ in range(8):
            crc = crc >> 1 ^ 0xA001 if crc & 1 else crc >> 1
    return bytes(frame) + crc.to_bytes(2, "little")


class Line:
    """A pseudo-terminal under a lasting name, with drives behind it: `values` has a register's number by (drive,
    register). `plan` is asked with (drive, register, number of the request); what it returns is done instead of
    answering: a list of bytes and pauses in seconds. None: the answer as it is."""

    def __init__(self, name, values, plan=None):
        self.name, self.values, self.plan = pathlib.Path(name), values, plan or (lambda *_: None)
        self.requests, self.running, self.master = [], True, None
        self.plug_in()
        self.thread = threading.Thread(target=self.serve, daemon=True)
        self.thread.start()

    def plug_in(self):
        master, end = os.openpty()
        tty.setraw(end)
        self.name.unlink(missing_ok=True)
        self.name.symlink_to(os.ttyname(end))
        self.end, self.master = end, master

    def pull_out(self):
        self.name.unlink()
        master, self.master = self.master, None
        os.close(master)
        os.close(self.end)

    def stop(self):
        self.running = False
        self.thread.join()
        if self.master is not None:
            self.pull_out()

    def answer(self, drive, function, register):
        if function == 0x11:
            name = self.values.get((drive, "name"))
            return with_checksum([drive, 0x91, 1]) if name is None else with_checksum(
                [drive, 0x11, len(name) + 2, drive, 0xFF, *name.encode()])
        value = self.values.get((drive, register))
        if value is None:
            return with_checksum([drive, function | 0x80, 2])
        return with_checksum([drive, function, 2, value >> 8, value & 0xFF])

    def serve(self):
        received, quiet_since = b"", time.monotonic()
        while self.running:
            master = self.master
            if master is None:
                time.sleep(0.005)
                continue
            try:
                if not select.select([master], [], [], 0.02)[0]:
                    received = b""  # silence ends a frame
                    continue
                received += os.read(master, 256)
            except (OSError, ValueError):
                received = b""
                continue
            length = 4 if received[1:2] == b"\x11" else 8
            if len(received) < length:
                continue
            frame, received = received[:length], b""
            drive, function = frame[0], frame[1]
            register = int.from_bytes(frame[2:4], "big") if length == 8 else -1
            assert with_checksum(frame[:-2]) == frame, frame
            self.requests.append((time.monotonic(), drive, function, register))
            if not any(known[0] == drive for known in self.values):
                continue
            todo = self.plan(drive, register, len(self.requests))
            for step in [self.answer(drive, function, register)] if todo is None else todo:
                if isinstance(step, float):
                    time.sleep(step)
                elif self.master == master:
                    os.write(master, step)


SERVER = """
import sys
from pymodbus.datastore import ModbusSequentialDataBlock, ModbusServerContext, ModbusSlaveContext
from pymodbus.server import StartSerialServer, StartTcpServer
from pymodbus.transaction import ModbusRtuFramer
from pymodbus.device import ModbusDeviceIdentification
slaves = {int(drive): ModbusSlaveContext(hr=ModbusSequentialDataBlock(0, [int(drive) * 1000 + at for at in range(700)]),
                                         zero_mode=True) for drive in sys.argv[3:]}
context = ModbusServerContext(slaves=slaves, single=False)
if sys.argv[1] == "tcp":
    StartTcpServer(context=context, address=("127.0.0.1", int(sys.argv[2])))
else:
    StartSerialServer(context=context, framer=ModbusRtuFramer, port=sys.argv[2], baudrate=38400, parity="N", timeout=0.005,
                      ignore_missing_slaves=True)
"""


def start_server(kind, place, *drives):
    """Register r of drive d has the number 1000 d + r."""
    return subprocess.Popen(["/usr/bin/python3", "-c", SERVER, kind, str(place), *map(str, drives)],
                            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def start_pair(one, other):
    """Two ends of a line."""
    pair = subprocess.Popen(["socat", f"pty,raw,echo=0,link={one}", f"pty,raw,echo=0,link={other}"])
    until = time.monotonic() + 10
    while not (os.path.exists(one) and os.path.exists(other)):
        assert pair.poll() is None and time.monotonic() < until, "socat made no terminals"
        time.sleep(0.01)
    return pair
