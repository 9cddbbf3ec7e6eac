#!/usr/bin/python3
"""A machine that answers each echo at once, with one thing about the answer wrong.

Argument: sender, identifier, sequence, payload, or nothing.
"""
import socket
import sys

# The byte of the answer that is another one than it should be.
WRONG_BYTES = {"identifier": 5, "sequence": 7, "payload": 16}


def checksum(message):
    """The Internet checksum (RFC 1071)."""
    padded = message + bytes(len(message) % 2)
    total = sum(padded[0::2]) * 256 + sum(padded[1::2])
    while total >> 16:
        total = (total & 0xFFFF) + (total >> 16)
    return (~total & 0xFFFF).to_bytes(2, "big")


def main():
    wrong = sys.argv[1]
    echoes = socket.socket(socket.AF_INET, socket.SOCK_RAW, socket.IPPROTO_ICMP)
    answers = socket.socket(socket.AF_INET, socket.SOCK_RAW, socket.IPPROTO_ICMP)
    answers.bind(("10.66.1.3" if wrong == "sender" else "10.66.1.2", 0))
    print("ready", flush=True)
    while True:
        packet, asker = echoes.recvfrom(512)
        request = packet[4 * (packet[0] & 15):]
        if request[0] != 8:
            continue
        answer = bytearray(4) + request[4:]
        if wrong in WRONG_BYTES:
            answer[WRONG_BYTES[wrong]] ^= 1
        answer[2:4] = checksum(answer)
        answers.sendto(answer, asker)


main()
