"""A session manager of one client: the connection protocol of the X Window System, and on it that of sessions."""
import os
import socket
import struct

# Of the connection, by number.
BYTE_ORDER, CONNECTION_SETUP, CONNECTION_REPLY, PROTOCOL_SETUP, PROTOCOL_REPLY = 1, 2, 6, 7, 8
# Of the session.
REGISTER, REGISTER_REPLY, SAVE, SAVE_DONE, DIE, CLOSE, PROPERTIES, SAVE_COMPLETE = 1, 2, 3, 8, 9, 11, 12, 18
SESSION = 1  # the number under which the session's messages go
HEADER = struct.Struct("<BBBBI")
GLOBAL, LOCAL, BOTH = 0, 1, 2


def _string(text):
    data = struct.pack("<H", len(text)) + text.encode()
    return data + bytes(-len(data) % 4)


class SessionManager:
    """The client is served while something is waited for."""

    def __init__(self, folder):
        self.path = os.path.join(folder, "session")
        self.listener = socket.socket(socket.AF_UNIX)
        self.listener.bind(self.path)
        self.listener.listen(1)
        self.listener.settimeout(20)
        self.client = None

    @property
    def address(self):
        return f"local/{os.uname().nodename}:{self.path}"

    def close(self):
        self.listener.close()
        self.lose()

    def lose(self):
        if self.client:
            self.client.close()
            self.client = None

    def wait_for_client(self):
        """Until the program has registered."""
        self.client, _ = self.listener.accept()
        self.client.settimeout(20)
        self._send(0, BYTE_ORDER)
        while True:
            major, minor, _ = self._take()
            if major == 0 and minor == CONNECTION_SETUP:
                self._send(0, CONNECTION_REPLY, body=_string("test") + _string("1"))
            elif major == 0 and minor == PROTOCOL_SETUP:
                self._send(0, PROTOCOL_REPLY, 0, SESSION, _string("test") + _string("1"))
            elif major == SESSION and minor == REGISTER:
                name = b"1234"
                self._send(SESSION, REGISTER_REPLY, body=struct.pack("<I", len(name)) + name)
                return

    def save(self, kind, shutdown):
        """Tells the program to save, and returns when it has."""
        self._send(SESSION, SAVE, body=struct.pack("<BBBB4x", kind, shutdown, 0, 0))
        while self._take()[:2] != (SESSION, SAVE_DONE):
            pass
        self._send(SESSION, SAVE_COMPLETE)

    def die(self):
        self._send(SESSION, DIE)

    def _send(self, major, minor, first=0, second=0, body=b""):
        body += bytes(-len(body) % 8)
        self.client.sendall(HEADER.pack(major, minor, first, second, len(body) // 8) + body)

    def _take(self):
        major, minor, _, _, length = HEADER.unpack(self._read(HEADER.size))
        return major, minor, self._read(8 * length)

    def _read(self, size):
        data = b""
        while len(data) < size:
            more = self.client.recv(size - len(data))
            if not more:
                raise AssertionError("the program has left its session")
            data += more
        return data
