"""For each pair of arguments (file, line length) prints, as one line of hex,
Python's Base64 text of the file's bytes, broken into CR LF lines of that
length (0: one line)."""
import base64
import sys

args = sys.argv[1:]
for i in range(0, len(args), 2):
    encoded = base64.b64encode(open(args[i], "rb").read())
    n = int(args[i + 1])
    if n:
        encoded = b"\r\n".join(encoded[k:k + n] for k in range(0, len(encoded), n))
    print(encoded.hex())
