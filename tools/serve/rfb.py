"""The part of the RFB protocol that says what a viewer holds down."""

import struct

# The viewer's side of the handshake: version, security type (none), shared flag.
VERSION = b"RFB 003.008\n"
HANDSHAKE_LENGTHS = [len(VERSION), 1, 1]

POINTER, KEY, QEMU = 5, 4, 255

# Message type -> (bytes needed to know the length, length from those bytes).
LENGTHS = {
    0: (1, lambda head: 20),  # pixel format
    2: (4, lambda head: 4 + 4 * struct.unpack_from(">H", head, 2)[0]),  # encodings
    3: (1, lambda head: 10),  # update request
    KEY: (1, lambda head: 8),
    POINTER: (1, lambda head: 6),
    6: (8, lambda head: 8 + abs(struct.unpack_from(">i", head, 4)[0])),  # clipboard
    150: (1, lambda head: 10),  # continuous updates
    248: (9, lambda head: 9 + head[8]),  # fence
    250: (1, lambda head: 4),  # power
    251: (8, lambda head: 8 + 16 * head[6]),  # desktop size
    QEMU: (1, lambda head: 12),  # key with scan code
}


# The longest message that a viewer may send: a clipboard of text.
LONGEST = 256 * 1024


class ViewerStream:
    """Splits what a viewer sends into whole messages and follows its buttons and keys."""

    def __init__(self):
        self._pending = b""
        self._handshake = list(HANDSHAKE_LENGTHS)
        self._keys = set()
        self._buttons = 0
        self._position = (0, 0)

    def feed(self, data):
        """The bytes of whole messages, to be passed on; ValueError if they are not RFB."""
        self._pending += data
        passed = b""
        while (length := self._message_length()) and len(self._pending) >= length:
            message, self._pending = self._pending[:length], self._pending[length:]
            self._follow(message)
            passed += message
        return passed

    def holds_something(self):
        return bool(self._buttons or self._keys)

    def release(self):
        """The messages that release everything that is held, at the pointer's last place."""
        messages = [struct.pack(">BBHH", POINTER, 0, *self._position)] if self._buttons else []
        messages += [struct.pack(">BBxxI", KEY, 0, key) for key in self._keys]
        return b"".join(messages)

    def _message_length(self):
        if self._handshake:
            return self._handshake[0]
        if not self._pending:
            return 0
        if self._pending[0] not in LENGTHS:
            raise ValueError(f"unknown viewer message {self._pending[0]}")
        needed, length = LENGTHS[self._pending[0]]
        if len(self._pending) < needed:
            return 0
        if length(self._pending) > LONGEST:
            raise ValueError("a viewer message beyond reason")
        return length(self._pending)

    def _follow(self, message):
        if self._handshake:
            if self._handshake.pop(0) == len(VERSION) and message != VERSION:
                raise ValueError("the viewer does not speak RFB 3.8")
        elif message[0] == POINTER:
            self._buttons, *self._position = struct.unpack(">xBHH", message)
        elif message[0] == KEY:
            self._follow_key(*struct.unpack(">xBxxI", message))
        elif message[0] == QEMU:
            self._follow_key(*struct.unpack(">xxHI4x", message))

    def _follow_key(self, down, key):
        (self._keys.add if down else self._keys.discard)(key)
