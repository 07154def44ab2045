#!/usr/bin/env python3
"""Runs a command beside an nginx of its own, on free ports: nginx.py NGINX FOLDER COMMAND [ARGUMENT...]

The command finds where it is as it finds the servers of servers.py, under the names "nginx" and "nginx_tls".
"""
import os
import signal
import subprocess
import sys

sys.dont_write_bytecode = True
import servers

FILES = {
    "hello.txt": b"hello world\n",
    "zero.txt": b"",
    "big.txt": b"".join(b"line %06d\n" % i for i in range(6000)),
    "ar.txt": "مرحبا ".encode() * 40,
    "rep.txt": b"a" * 500,
}
LARGE = 64 << 20  # bytes of large.bin, which takes no room on the disk


def write_files(folder):
    www = os.path.join(folder, "www")
    os.makedirs(www, exist_ok=True)
    for name, content in FILES.items():
        with open(os.path.join(www, name), "wb") as file:
            file.write(content)
    with open(os.path.join(www, "large.bin"), "wb") as file:
        file.truncate(LARGE)
    with open(os.path.join(folder, "users"), "w") as file:
        file.write("user:{PLAIN}secret\n")


def write_configuration(folder, values):
    with open(os.path.join(os.path.dirname(os.path.abspath(__file__)), "nginx.conf")) as file:
        text = file.read()
    for name, value in values.items():
        text = text.replace(f"@{name}@", str(value))
    path = os.path.join(folder, "nginx.conf")
    with open(path, "w") as file:
        file.write(text)
    return path


def listening():
    listener = servers.bound_socket()
    listener.listen(128)
    return listener


def start(program, folder, plain, tls, scripted):
    """nginx takes over sockets that are open already, so nobody else can get their ports."""
    configuration = write_configuration(folder, {
        "USER": "user root;" if os.geteuid() == 0 else "", "DIR": folder, "HTTP": plain.getsockname()[1], "HTTPS": tls.getsockname()[1], "SCRIPTED": scripted})
    sockets = (plain.fileno(), tls.fileno())
    nginx = subprocess.Popen([program, "-p", folder, "-c", configuration, "-e", os.path.join(folder, "error.log")],
                             pass_fds=sockets, env={**os.environ, "NGINX": "%d;%d;" % sockets})
    plain.close()
    tls.close()
    return nginx


def main(program, folder, command):
    os.makedirs(folder, exist_ok=True)
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    write_files(folder)
    addresses = servers.open_all(folder)
    plain, tls = listening(), listening()
    addresses.update(nginx=servers.address(plain), nginx_tls=servers.address(tls, "https"))
    nginx = start(program, folder, plain, tls, addresses["http"])
    try:
        servers.write_addresses(folder, addresses)
        environment = {**os.environ, "QEL_HTTP_ADDRESSES": os.path.join(folder, "addresses")}
        return subprocess.run(command, env=environment, check=False).returncode
    finally:
        nginx.terminate()
        nginx.wait()


if __name__ == "__main__":
    if len(sys.argv) < 4:
        sys.exit(__doc__)
    os._exit(main(os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2]), sys.argv[3:]))
