"""A private authority and what it has signed, made anew for each run by the openssl program."""
import os
import subprocess

# What the name of a certificate stands for: who signed it, for which names, for how many days.
CERTIFICATES = {
    "good": ("authority", "DNS:localhost,IP:127.0.0.1", 30),
    "expired": ("authority", "DNS:localhost,IP:127.0.0.1", -1),
    "wrong_host": ("authority", "DNS:elsewhere.example", 30),
    "unknown": ("other_authority", "DNS:localhost,IP:127.0.0.1", 30),
}


def make_certificates(folder):
    """<name>.pem and <name>.key for each of CERTIFICATES, authority.pem, other_authority.pem."""
    for name in ("authority", "other_authority"):
        openssl(folder, "req", "-x509", *new_key(name), "-days", "30", "-out", name + ".pem",
                "-addext", "keyUsage=critical,keyCertSign,cRLSign")
    for name, (signer, hosts, days) in CERTIFICATES.items():
        sign(folder, name, signer, hosts, days)


def sign(folder, name, signer, hosts, days):
    with open(os.path.join(folder, name + ".ext"), "w") as extensions:
        extensions.write(f"subjectAltName={hosts}\nbasicConstraints=CA:FALSE\nextendedKeyUsage=serverAuth\n")
    openssl(folder, "req", "-new", *new_key(name), "-out", name + ".csr")
    openssl(folder, "x509", "-req", "-in", name + ".csr", "-CA", signer + ".pem", "-CAkey", signer + ".key",
            "-CAcreateserial", "-days", str(days), "-extfile", name + ".ext", "-out", name + ".pem")


def new_key(name):
    return ["-newkey", "rsa:2048", "-nodes", "-keyout", name + ".key", "-subj", "/CN=" + name]


def openssl(folder, *arguments):
    result = subprocess.run(["openssl", *arguments], cwd=folder, stdin=subprocess.DEVNULL,
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
    if result.returncode != 0:
        raise RuntimeError(f"openssl {' '.join(arguments)}: {result.stdout.decode()}")
