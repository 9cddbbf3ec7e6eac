#!/usr/bin/python3
"""A machine whose port 3389 is open, to one connection after the other.

Arguments: how it ends, what it says in hexadecimal digits, the seconds between two bytes of that,
0 for none, and its address, if it isn't to be every one of the machine's. It hears the request
first. It ends by closing or resetting the connection at once, or stays; or what it says goes on
with millions of zeros.
"""
import socket
import struct
import sys
import time


def serve(peer, end, words, pause):
    peer.recv(64)
    if end == "floods":
        words += bytes(9999999)
    step = 1 if pause else len(words) + 1
    for place in range(0, len(words), step):
        time.sleep(pause)
        peer.sendall(words[place:place + step])
    while end == "stays" and peer.recv(64):
        pass
    if end == "resets":
        peer.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))


def main():
    end, words, pause = sys.argv[1], bytes.fromhex(sys.argv[2]), float(sys.argv[3])
    address = sys.argv[4] if len(sys.argv) > 4 else ""
    listener = socket.create_server((address, 3389))
    print("ready", flush=True)
    while True:
        peer, _ = listener.accept()
        with peer:
            try:
                serve(peer, end, words, pause)
            except OSError:
                pass


main()
