"""A board program for tests: keeps to the protocol, and breaks it at one request on demand.

   test_board.py LOG [FAULT REQUEST [N]]

Every request goes to the file LOG. At the N-th REQUEST (from 1) the FAULT happens:
  die, hang, stubborn (hang and ignore SIGTERM), garbage, prose, long (line of 4097 bytes), control, err,
  late (answer after 1 s), twice (two answers), and for "read": huge (2^40 samples), short (one sample less),
  more (one sample too many), nan, stuck (in the middle of the samples).
Records are counter / 1024 for sample `counter` of the run, plus the channel. "wait" says no for the first
call of every record.
"""
import signal
import struct
import sys
import time

log_name = sys.argv[1]
fault, fault_request = (sys.argv[2:4] + ["", ""])[:2] if len(sys.argv) > 3 else ("", "")
fault_number = int(sys.argv[4]) if len(sys.argv) > 4 else 1
out = sys.stdout.buffer
seen = {}
channels = samples = counter = waits = 0
facts = {"category": "14649", "type": "USB-4432 of tests", "trigger": "1",
         "channels": "Dev1/ai0,Dev1/ai1,Dev1/ai2,Dev1/ai3", "maxrate": "102400", "minrate": "2000",
         "ranges": "-10 10 -1 1", "couplings": "3"}


def say(text, tail=b""):
    out.write(text.encode("latin1") + b"\n" + tail)
    out.flush()


def break_rules():
    if fault == "die":
        sys.exit(3)
    if fault == "stubborn":
        signal.signal(signal.SIGTERM, signal.SIG_IGN)
    if fault in ("hang", "stubborn"):
        time.sleep(60)
    if fault == "garbage":
        say("\x00\xff\x1b[2J")
    if fault == "prose":
        say("yes, of course")
    if fault == "long":
        say("ok " + "x" * 4093)  # 4097 bytes with its end
    if fault == "control":
        say("ok 1\r")
    if fault == "err":
        say("err -200284 the cable is loose")
    if fault == "twice":
        say("ok\nok")
    if fault == "huge":
        say("ok 1099511627776 %d 0" % channels, b"\0" * 100)
    if fault == "short":
        say("ok %d %d 0" % (samples - 1, channels), b"\0" * (8 * (samples - 1) * channels))
    if fault == "more":
        say("ok %d %d 0" % (samples, channels), b"\0" * (8 * samples * channels + 8))
    if fault == "nan":
        say("ok %d %d 0" % (samples, channels), struct.pack("<d", float("nan")) * (samples * channels))
    if fault == "stuck":
        say("ok %d %d 0" % (samples, channels), b"\0" * 16)
        time.sleep(60)
    return fault != "late"


with open(log_name, "a") as log:
    for line in sys.stdin:
        line = line.rstrip("\n")
        word = line.split(" ")[0]
        print(line, file=log, flush=True)
        seen[word] = seen.get(word, 0) + 1
        if word == fault_request and seen[word] == fault_number:
            if fault == "late":
                time.sleep(1)
            elif break_rules():
                continue
        if word == "bye":
            break
        if word == "hello":
            say("ok 1 test board")
        elif word == "devices":
            say("ok Dev1,Dev2")
        elif word == "fact":
            say("ok " + facts[line.split(" ")[2]])
        elif word == "task":
            channels = 0
            say("ok 7")
        elif word == "channel":
            channels += 1
            say("ok")
        elif word == "clock":
            rate, samples = float(line.split(" ")[2]), int(line.split(" ")[3])
            say("ok")
        elif word == "rate":
            say("ok 2560.5")
        elif word == "count":
            say("ok %d" % channels)
        elif word == "wait":
            waits += 1
            say("ok %d" % (waits % 2 == 0))
        elif word == "read":
            values = [(counter + i) / 1024 + c for c in range(channels) for i in range(samples)]
            counter += samples
            say("ok %d %d 5" % (samples, channels), struct.pack("<%dd" % len(values), *values))
        else:
            say("ok")
