"""A session manager of the X desktop, as far as a program's end needs one: over the system's own protocol library."""

import ctypes
import os
import select
import threading

from programs import wait_for

SAVE_LOCAL, SAVE_BOTH = 1, 2
INTERACT_NONE, INTERACT_ANY = 0, 2
ALL_CALLBACKS = 0x3FF
POINTER, INT, TEXT = ctypes.c_void_p, ctypes.c_int, ctypes.c_char_p

# The manager's callbacks, in the order of the library's record, with what comes behind connection and manager data.
CALLBACKS = (
    ("register_client", (TEXT,)), ("interact_request", (INT,)), ("interact_done", (INT,)),
    ("save_yourself_request", (INT, INT, INT, INT, INT)), ("save_yourself_phase2_request", ()),
    ("save_yourself_done", (INT,)), ("close_connection", (INT, POINTER)), ("set_properties", (INT, POINTER)),
    ("delete_properties", (INT, POINTER)), ("get_properties", ()),
)
FUNCTIONS = {name: ctypes.CFUNCTYPE(INT, POINTER, POINTER, *more) for name, more in CALLBACKS}


class Record(ctypes.Structure):
    _fields_ = [field for name, _ in CALLBACKS for field in ((name, FUNCTIONS[name]), (name + "_data", POINTER))]


class PropertyValue(ctypes.Structure):
    _fields_ = [("length", INT), ("value", POINTER)]


class Property(ctypes.Structure):
    _fields_ = [("name", TEXT), ("type", TEXT), ("count", INT), ("values", ctypes.POINTER(PropertyValue))]


NEW_CLIENT = ctypes.CFUNCTYPE(INT, POINTER, POINTER, ctypes.POINTER(ctypes.c_ulong), ctypes.POINTER(Record), POINTER)
BROKEN = ctypes.CFUNCTYPE(None, POINTER)
HOST_CHECK = ctypes.CFUNCTYPE(INT, TEXT)


class SessionManager:
    """One session, run by a thread of its own until it is closed."""

    def __init__(self):
        self.client = None  # its connection, once it has registered
        self.saved = 0  # how often it has said that it is done
        self.properties = {}  # lists of byte strings
        self._orders = []
        self._ice, self._sm = ctypes.CDLL("libICE.so.6"), ctypes.CDLL("libSM.so.6")
        for function in (self._ice.IceComposeNetworkIdList, self._ice.IceAcceptConnection, self._sm.SmsGenerateClientID):
            function.restype = POINTER
        self._functions = {name: FUNCTIONS[name](getattr(self, name, self._ignored)) for name, _ in CALLBACKS}
        self._new_client, self._any_host = NEW_CLIENT(self._greet), HOST_CHECK(lambda _: 1)
        # Without it the library ends the process when a client goes.
        self._broken = BROKEN(lambda _: None)
        self._ice.IceSetIOErrorHandler(self._broken)
        error = ctypes.create_string_buffer(256)
        if not self._sm.SmsInitialize(b"test", b"1", self._new_client, None, self._any_host, len(error), error):
            raise OSError(error.value)
        count, objects = INT(), ctypes.POINTER(POINTER)()
        if not self._ice.IceListenForConnections(ctypes.byref(count), ctypes.byref(objects), len(error), error):
            raise OSError(error.value)
        self._listeners = [POINTER(objects[i]) for i in range(count.value)]
        for listener in self._listeners:
            self._ice.IceSetHostBasedAuthProc(listener, self._any_host)
        self.address = ctypes.string_at(self._ice.IceComposeNetworkIdList(count, objects)).decode()
        self._wake, self._waker = os.pipe()
        self._thread = threading.Thread(target=self._run, daemon=True)
        self._thread.start()

    def close(self):
        self._order(None)
        self._thread.join()

    def end_session(self):
        """Lets the program save itself, and tells it to go when it has."""
        before = self.saved
        self._order(lambda: self._sm.SmsSaveYourself(self.client, SAVE_BOTH, 1, INTERACT_ANY, 0))
        wait_for(lambda: self.saved > before, "the program's word that it has saved itself")
        self._order(lambda: self._sm.SmsDie(self.client))

    def _order(self, order):
        self._orders.append(order)
        os.write(self._waker, b"!")

    def _run(self):
        connections = []
        while True:
            numbers = {self._ice.IceGetListenConnectionNumber(each): each for each in self._listeners}
            links = {self._ice.IceConnectionNumber(each): each for each in connections}
            for number in select.select([*numbers, *links, self._wake], [], [])[0]:
                if number == self._wake:
                    os.read(self._wake, 1)
                    order = self._orders.pop(0)
                    if order is None:
                        return
                    order()
                elif number in numbers:
                    connections.append(POINTER(self._ice.IceAcceptConnection(numbers[number], ctypes.byref(INT()))))
                elif self._ice.IceProcessMessages(links[number], None, None) != 0:
                    connections.remove(links[number])

    def _greet(self, _connection, _data, mask, record, _reason):
        mask[0] = ALL_CALLBACKS
        for name, function in self._functions.items():
            setattr(record[0], name, function)
        return 1

    @staticmethod
    def _ignored(*_):
        return 1

    def register_client(self, connection, _data, _previous):
        connection = POINTER(connection)
        self._sm.SmsRegisterClientReply(connection, POINTER(self._sm.SmsGenerateClientID(connection)))
        # A new client says at once how it is to be started again.
        self._sm.SmsSaveYourself(connection, SAVE_LOCAL, 0, INTERACT_NONE, 0)
        self.client = connection
        return 1

    def save_yourself_done(self, connection, _data, _success):
        if self.saved == 0:
            self._sm.SmsSaveComplete(POINTER(connection))
        self.saved += 1
        return 1

    def set_properties(self, _connection, _data, count, properties):
        for each in ctypes.cast(properties, ctypes.POINTER(ctypes.POINTER(Property)))[:count]:
            values = each[0].values[:each[0].count]
            self.properties[each[0].name.decode()] = [ctypes.string_at(v.value, v.length) for v in values]
        return 1
