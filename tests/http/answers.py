"""What the scripted server answers: an address is /<case>/<behaviour>/<argument>..., and the behaviours are here.

A behaviour is a row of RAW (bytes that go out as they are) or a function marked with @answer. One that returns END
closes the connection, any other leaves it open for the next request.
"""
import base64
import socket
import struct
import time
import zlib

END = True
PAUSE = 0.05  # between pieces that are to arrive one by one
BLOCK = b"x" * 65536

CHUNKED = b"HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n"
CONTINUE = b"HTTP/1.1 100 Continue\r\n\r\n"


def reply(body=b"", status=b"200 OK", headers=()):
    lines = [b"HTTP/1.1 " + status, *headers, b"Content-Length: %d" % len(body), b"", body]
    return b"\r\n".join(lines)


def chunk(data):
    return b"%x\r\n%s\r\n" % (len(data), data)


# The whole answer, and whether the connection ends with it.
RAW = {
    "ok": (reply(b"ok body", headers=[b"Content-Type: text/plain"]), False),
    "empty": (reply(), False),
    "chunkext": (CHUNKED + b"5;ext=1\r\nhello\r\n0;x\r\nTrailer: v\r\n\r\n", False),
    "chunkbad": (CHUNKED + b"ZZ\r\nhello\r\n0\r\n\r\n", END),
    "chunkcut": (CHUNKED + b"5\r\nhello\r\n5\r\nwo", END),
    "close": (b"HTTP/1.1 200 OK\r\n\r\nuntil close", END),
    "close10": (b"HTTP/1.0 200 OK\r\n\r\nold server", END),
    "connclose": (reply(b"bye", headers=[b"Connection: close"]), END),
    "short": (b"HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nonly this", END),
    "closenow": (b"", END),
    "garbage": (b"this is not http\r\n\r\n", END),
    "noreason": (b"HTTP/1.1 200\r\nContent-Length: 2\r\n\r\nhi", False),
    "badstatus": (b"HTTP/1.1 2x0 OK\r\nContent-Length: 2\r\n\r\nhi", END),
    "half": (b"HTTP/1.1 200 OK\r\nX-A: b", END),
    "lf": (b"HTTP/1.1 200 OK\nContent-Length: 2\nX-A: b\n\nhi", False),
    "fold": (b"HTTP/1.1 200 OK\r\nX-A: one\r\n two\r\nContent-Length: 2\r\n\r\nhi", False),
    "both": (b"HTTP/1.1 200 OK\r\nContent-Length: 3\r\nTransfer-Encoding: chunked\r\n\r\n" + chunk(b"hello") +
             chunk(b""), False),
    "lenneg": (b"HTTP/1.1 200 OK\r\nContent-Length: -5\r\n\r\nhello", END),
    "lentext": (b"HTTP/1.1 200 OK\r\nContent-Length: abc\r\n\r\nhello", END),
    "lenhuge": (b"HTTP/1.1 200 OK\r\nContent-Length: 99999999999999999999\r\n\r\nhello", END),
    "lenlong": (b"HTTP/1.1 200 OK\r\nContent-Length: 1000000000000000000\r\n\r\nhello", END),
    "lensmall": (b"HTTP/1.1 200 OK\r\nContent-Length: 3\r\n\r\nhello", False),
    "bothlong": (b"HTTP/1.1 200 OK\r\nContent-Length: 100\r\nTransfer-Encoding: chunked\r\n\r\n" + chunk(b"hello") +
                 chunk(b""), False),
    "nocontent": (b"HTTP/1.1 204 No Content\r\nContent-Length: 5\r\n\r\n", False),
    "lonecr": (b"HTTP/1.1 302 Found\r\nX-A: b\rLocation: /made/ok\r\nContent-Length: 0\r\n\r\n", False),
    "endlessinfo": ((CONTINUE[:-2] + b"X-A: b\r\n\r\n") * 99999, END),
    "endlesstrailer": (CHUNKED + chunk(b"hello") + b"0\r\n" + b"X-T: value\r\n" * 299999, END),
    "dup": (reply(b"hi", headers=[b"Set-Cookie: a=1", b"X-D: 1", b"Set-Cookie: b=2; Path=/", b"X-D: 2"]), False),
    "case": (reply(b"hi", headers=[b"x-lower: v", b"X-UPPER:nospace", b"X-Trail: v  ", b"X-Empty:",
                                   b"X-Colon: a:b: c"]), False),
    "latin": (reply(b"hi", headers=[b"X-L: caf\xe9", b"X-U: \xd9\x85"]), False),
    "info103": (b"HTTP/1.1 103 Early Hints\r\nLink: x\r\n\r\n" + reply(b"after hints"), False),
    "cont100": (reply(b"after 100"), False),  # the server has sent CONTINUE before it read the body
    "cont100b": (CONTINUE + reply(b"after 100b"), False),
    "authfail": (reply(b"denied", b"401 Unauthorized", [b'WWW-Authenticate: Basic realm="r"']), False),
}

ANSWERS = {}


def answer(function):
    ANSWERS[function.__name__] = function
    return function


class Exchange:
    """One request, and the connection to answer it on. Arguments are bytes."""

    def __init__(self, connection, verb, case, arguments, headers, body):
        self.connection = connection
        self.verb, self.case, self.arguments, self.headers, self.body = verb, case, arguments, headers, body

    def send(self, data):
        self.connection.sendall(data)

    def send_apart(self, pieces):
        for piece in pieces:
            time.sleep(PAUSE)
            self.send(piece)

    def reset(self):
        self.connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
        return END

    def count(self, index=0):
        return int(self.arguments[index])


def perform(behaviour, exchange):
    """Answers the request. True when the connection is to end."""
    if behaviour in RAW:
        data, ends = RAW[behaviour]
        exchange.send(data)
        return ends
    unknown = lambda x: x.send(reply(b"unknown behaviour " + behaviour.encode(), b"404 Not Found"))
    return ANSWERS.get(behaviour, unknown)(exchange)


# Bodies.

@answer
def echo(x):
    x.send(reply(x.verb + b" [" + x.body + b"]"))


@answer
def received(x):
    """How much body came, and its CRC-32."""
    x.send(reply(b"%d %08x" % (len(x.body), zlib.crc32(x.body))))


@answer
def bodylen(x):
    rest = x.count()
    x.send(b"HTTP/1.1 200 OK\r\nContent-Length: %d\r\n\r\n" % rest)
    while rest > 0:
        x.send(BLOCK[:rest])
        rest -= len(BLOCK)


@answer
def endless(x):
    x.send(CHUNKED)
    while True:
        x.send(chunk(BLOCK))


@answer
def chunked(x):
    x.send(CHUNKED)
    x.send_apart([chunk(b"c" * int(size)) for size in x.arguments] + [chunk(b"")])


@answer
def chunkone(x):
    x.send(CHUNKED + b"".join(chunk(b"d" * int(size)) for size in x.arguments) + chunk(b""))


@answer
def pieces(x):
    parts = [bytes.fromhex(part.decode()) for part in x.arguments]
    x.send(b"HTTP/1.1 200 OK\r\nContent-Length: %d\r\n\r\n" % sum(map(len, parts)))
    x.send_apart(parts)


@answer
def chunkhex(x):
    x.send(CHUNKED)
    x.send_apart([chunk(bytes.fromhex(part.decode())) for part in x.arguments] + [chunk(b"")])


@answer
def gzip(x):
    packer = zlib.compressobj(9, zlib.DEFLATED, 31)
    body = packer.compress(b"compressed text") + packer.flush()
    x.send(reply(body, headers=[b"Content-Encoding: gzip", b"Content-Type: text/plain"]))


# Status lines and headers.

@answer
def code(x):
    number = x.arguments[0]
    x.send(reply(b"body of " + number, number + b" Text For " + number))


@answer
def nobody(x):
    x.send(b"HTTP/1.1 " + x.arguments[0] + b" X\r\n\r\n")


@answer
def longhdr(x):
    x.send(reply(b"hi", headers=[b"X-Long: " + b"v" * x.count()]))


@answer
def manyhdr(x):
    x.send(reply(b"hi", headers=[b"X-%d: %d" % (i, i) for i in range(x.count())]))


@answer
def endlesshdr(x):
    """Without end for whoever takes no 4 MB of it."""
    x.send(b"HTTP/1.1 200 OK\r\n" + b"X-Endless: value\r\n" * 233017)
    return END


@answer
def cookie(x):
    given = x.headers.get(b"cookie", b"(none)")
    x.send(reply(b"cookie header: " + given, headers=[b"Set-Cookie: sid=42; Path=/"]))


# Redirections: /redir/<status>/<behaviour>/..., /redirabs/<status>/<host and port>/<behaviour>/...

def moved(x, *headers):
    x.send(reply(b"moved" if headers else b"no location", x.arguments[0] + b" Moved", headers))


def path(x, first):
    return b"/" + b"/".join([x.case.encode(), *x.arguments[first:]])


@answer
def redir(x):
    moved(x, b"Location: " + path(x, 1))


@answer
def redirdrip(x):
    """To "ok", with a body that takes longer than anybody waits."""
    x.send(b"HTTP/1.1 302 Found\r\nLocation: %s/ok\r\nContent-Length: 9999\r\n\r\n" % path(x, len(x.arguments)))
    while True:
        time.sleep(PAUSE)
        x.send(b"x")


@answer
def redirabs(x):
    moved(x, b"Location: http://" + x.arguments[1] + path(x, 2))


@answer
def redirrel(x):
    moved(x, b"Location: " + x.arguments[1])


@answer
def redirno(x):
    moved(x)


# Who may come in.

@answer
def auth(x):
    """Takes any credentials; asks for those of the scheme that the address names."""
    if x.headers.get(b"authorization"):
        x.send(reply(b"authorised"))
        return
    asked = {
        b"basic": b'Basic realm="r"',
        b"bearer": b'Bearer realm="r"',
        b"digest": b'Digest realm="r", nonce="n1", qop="auth", algorithm=MD5',
    }[x.arguments[0]]
    x.send(reply(b"denied", b"401 Unauthorized", [b"WWW-Authenticate: " + asked]))


@answer
def login(x):
    """Takes the user and the password that the address names."""
    wanted = b"Basic " + base64.b64encode(b":".join(x.arguments[:2]))
    if x.headers.get(b"authorization") == wanted:
        x.send(reply(b"welcome"))
    else:
        x.send(reply(b"denied", b"401 Unauthorized", [b'WWW-Authenticate: Basic realm="r"']))


# Connections that break, and servers that take their time.

@answer
def resetnow(x):
    return x.reset()


@answer
def resethead(x):
    x.send(b"HTTP/1.1 200 OK\r\nX-A: b")
    time.sleep(PAUSE)
    return x.reset()


@answer
def resetmid(x):
    x.send(b"HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nonly this")
    time.sleep(0.4)  # what has come is read before the reset wipes it out
    return x.reset()


@answer
def slow(x):
    time.sleep(float(x.arguments[0]))
    x.send(reply(b"late"))


@answer
def never(x):
    """Nothing, until the client goes."""
    x.connection.recv(1)
    return END


@answer
def stall(x):
    """A part of the body, then nothing until the client goes."""
    x.send(b"HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nonly this")
    return never(x)


@answer
def drip(x):
    """/drip/<bytes>/<milliseconds>: one byte at a time."""
    x.send(b"HTTP/1.1 200 OK\r\nContent-Length: %d\r\n\r\n" % x.count())
    for _ in range(x.count()):
        time.sleep(x.count(1) / 1000)
        x.send(b"x")


@answer
def driphead(x):
    """/driphead/<milliseconds>: the head, one byte at a time."""
    for byte in reply(b"hi"):
        time.sleep(x.count() / 1000)
        x.send(bytes([byte]))
