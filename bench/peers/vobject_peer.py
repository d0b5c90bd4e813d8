"""FILE open|read|write ROUNDS: the protocol of peer.h for vobject, without a first round."""

import sys
import time

import vobject


END = "\nEND:VCARD\r\n"


def cards_of(data):
    """One card at a time: a card that it fails on would end the rest too."""
    cards = []
    for text in data.decode("utf-8").split(END)[:-1]:
        try:
            cards.append(vobject.readOne(text + END, ignoreUnreadable=True, allowQP=True))
        except (vobject.base.VObjectError, UnicodeDecodeError):
            pass
    return cards


def length_of(value):
    if isinstance(value, (str, bytes)):
        return len(value)
    if isinstance(value, (list, tuple)):
        return sum(map(length_of, value))
    return sum(map(length_of, vars(value).values()))  # a name or an address


def content_of(cards):
    count = length = 0
    for card in cards:
        for line in card.getChildren():
            count += 1
            length += len(line.name) + len(line.group or "") + length_of(line.value)
            for name, values in line.params.items():
                length += len(name) + sum(map(len, values))
    return count, length


def open_all(data):
    return len(cards_of(data)), 0


def read_all(data):
    cards = cards_of(data)
    return len(cards), content_of(cards)[0]


def write_all(cards):
    texts = []
    for card in cards:
        try:
            texts.append(card.serialize(validate=False))
        except vobject.base.VObjectError:
            pass
    return len(texts), len("".join(texts).encode("utf-8"))


def main():
    path, task, rounds = sys.argv[1:]
    with open(path, "rb") as file:
        source = file.read()
    work = {"open": open_all, "read": read_all, "write": write_all}[task]
    if task == "write":
        source = cards_of(source)
    shortest = float("inf")
    for _ in range(int(rounds)):
        begin = time.process_time()
        cards, items = work(source)
        shortest = min(shortest, time.process_time() - begin)
    print(f"{shortest:.6f} {cards} {items}")


main()
