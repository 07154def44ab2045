#!/usr/bin/env python3
"""The servers that the HTTP tests talk to, on free ports of this machine's loopback.

    servers.py start FOLDER    starts them in the background; they write FOLDER/addresses, lines "name=value"
    servers.py stop FOLDER     ends them

They also end when the process that asked for the start does (ctest, a shell), or after half an hour without a
connection. What they answer is in answers.py; GET /saw/<case> tells which requests of that case they have had since
it was last asked for: "<head> {BODY} <body>", " || " between them, \\xXX for what is not printable.
"""
import os
import select
import signal
import socket
import ssl
import sys
import threading
import time
import traceback

sys.dont_write_bytecode = True  # the folder of the sources stays as it is
import answers
import authority

IDLE_SECONDS = 1800
CONNECTION_SECONDS = 3  # a kept-alive connection waits so long for its next request
LONGEST_BODY_SHOWN = 500

saw = {}
saw_lock = threading.Lock()
last_connection = time.monotonic()


# Requests.

def spelled(data):
    text = "".join(chr(b) if 0x20 < b < 0x7F and b not in b"<\\" else "\\\\" if b == 0x5C else "\\x%02X" % b
                   for b in data)
    return text or "<empty>"


def remember(case, head, body):
    shown = spelled(body) if len(body) <= LONGEST_BODY_SHOWN else f"len {len(body)}"
    with saw_lock:
        saw.setdefault(case, []).append(f"{spelled(head)} {{BODY}} {shown}")


def recall(case):
    with saw_lock:
        return " || ".join(saw.pop(case, [])).encode()


class Connection:
    """Reads requests of one connection and has them answered."""

    def __init__(self, stream):
        self.stream = stream
        self.buffer = b""

    def serve(self):
        while self.read_until(lambda: b"\r\n\r\n" in self.buffer) and not self.answer_next():
            pass

    def read_until(self, enough):
        while not enough():
            data = self.stream.recv(65536)
            if not data:
                return False
            self.buffer += data
            if self.buffer.startswith(b"\x16"):
                return False  # TLS
        return True

    def answer_next(self):
        head, self.buffer = self.buffer.split(b"\r\n\r\n", 1)
        first, *lines = head.split(b"\r\n")
        verb, target = first.split(b" ")[:2]
        headers = {name.lower(): value.strip() for name, _, value in (line.partition(b":") for line in lines)}
        _, *parts = target.split(b"?")[0].split(b"/")
        case, behaviour = [part.decode("latin1") for part in (parts + [b"", b""])[:2]]
        if case == "saw":
            return self.stream.sendall(answers.reply(recall(behaviour)))
        body = self.read_body(behaviour, int(headers.get(b"content-length") or 0))
        remember(case, head, body)
        return answers.perform(behaviour, answers.Exchange(self.stream, verb, case, parts[2:], headers, body))

    def read_body(self, behaviour, length):
        if behaviour == "cont100":
            self.stream.sendall(answers.CONTINUE)
        if behaviour == "deaf":
            time.sleep(CONNECTION_SECONDS)
        self.read_until(lambda: len(self.buffer) >= length)
        body, self.buffer = self.buffer[:length], self.buffer[length:]
        return body


# Listeners.

def serve_connection(stream, tls):
    try:
        stream.settimeout(CONNECTION_SECONDS)
        stream.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        if tls:
            stream = tls.wrap_socket(stream, server_side=True)
        Connection(stream).serve()
    except OSError:
        pass  # the client went, or did not like what it saw
    finally:
        stream.close()


def accept_forever(listener, tls):
    global last_connection
    while True:
        stream, _ = listener.accept()
        last_connection = time.monotonic()
        threading.Thread(target=serve_connection, args=(stream, tls), daemon=True).start()


def bound_socket():
    bound = socket.socket()
    bound.bind(("127.0.0.1", 0))
    return bound


def address(bound, scheme="http"):
    host = "127.0.0.1" if scheme == "http" else "localhost"  # Wine finds no addresses in certificates
    return f"{scheme}://{host}:{bound.getsockname()[1]}"


def listen(tls=None):
    listener = bound_socket()
    listener.listen(128)
    threading.Thread(target=accept_forever, args=(listener, tls), daemon=True).start()
    return address(listener, "https" if tls else "http")


def tls_of(folder, name):
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain(os.path.join(folder, name + ".pem"), os.path.join(folder, name + ".key"))
    return context


kept = []  # sockets that only have to be there


def refusing():
    """A port that is taken, so that nobody else gets it, and that refuses every connection."""
    kept.append(bound_socket())
    return address(kept[-1])


def unanswering():
    """A port whose queue is full: whoever connects waits."""
    listener = bound_socket()
    listener.listen(0)
    kept.append(listener)
    for _ in range(4):
        client = socket.socket()
        client.setblocking(False)
        client.connect_ex(listener.getsockname())
        kept.append(client)
    return address(listener)


def open_all(folder):
    """Starts everything; the addresses by name."""
    authority.make_certificates(folder)
    addresses = {"http": listen(), "refusing": refusing(), "unanswering": unanswering()}
    addresses["tls_to_plain"] = addresses["http"].replace("http", "https")
    for name in authority.CERTIFICATES:
        addresses["https_" + name] = listen(tls_of(folder, name))
    for name in ("authority", "other_authority"):
        addresses[name] = os.path.join(folder, name + ".pem")
    return addresses


def write_addresses(folder, addresses):
    path = os.path.join(folder, "addresses")
    with open(path + ".new", "w") as file:
        file.writelines(f"{name}={value}\n" for name, value in addresses.items())
    os.rename(path + ".new", path)


# In the background.

def leave_terminal(folder, ready):
    """Nothing inherited stays open: ctest waits until the last one lets go of its pipes."""
    os.setsid()
    log = os.open(os.path.join(folder, "log"), os.O_WRONLY | os.O_CREAT | os.O_TRUNC)
    nothing = os.open(os.devnull, os.O_RDONLY)
    for descriptor, source in ((0, nothing), (1, log), (2, log), (3, ready)):
        os.dup2(source, descriptor)
    os.closerange(4, os.sysconf("SC_OPEN_MAX"))
    return 3


def wait_for_end(asker):
    """Until `asker` (a descriptor of the process) ends, or nobody has come for long."""
    poll = select.poll()
    poll.register(asker, select.POLLIN)
    while time.monotonic() - last_connection < IDLE_SECONDS and not poll.poll(10000):
        pass


def run(folder, asker, ready):
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(0))
    path = os.path.join(folder, "addresses")
    try:
        addresses = open_all(folder)
        write_addresses(folder, {**addresses, "process": os.getpid()})
        os.write(ready, b"ready")
        os.close(ready)
        wait_for_end(os.pidfd_open(asker))
    except Exception:
        traceback.print_exc()
    finally:
        if os.path.exists(path):
            os.remove(path)
        sys.stderr.flush()
        os._exit(0)  # whoever still sends an endless answer is not waited for


def start(folder):
    os.makedirs(folder, exist_ok=True)
    asker = os.getppid()
    incoming, outgoing = os.pipe()
    if os.fork() == 0:
        run(folder, asker, leave_terminal(folder, outgoing))
    os.close(outgoing)
    if os.read(incoming, 16) != b"ready":
        with open(os.path.join(folder, "log")) as log:
            sys.exit("the servers did not start:\n" + log.read())


def stop(folder):
    path = os.path.join(folder, "addresses")
    with open(path) as file:
        process = int(dict(line.rstrip("\n").split("=", 1) for line in file)["process"])
    os.kill(process, signal.SIGTERM)
    for _ in range(100):
        if not os.path.exists(path):
            return
        time.sleep(0.05)
    sys.exit("the servers did not end")


if __name__ == "__main__":
    if len(sys.argv) != 3 or sys.argv[1] not in ("start", "stop"):
        sys.exit(__doc__)
    {"start": start, "stop": stop}[sys.argv[1]](os.path.abspath(sys.argv[2]))
