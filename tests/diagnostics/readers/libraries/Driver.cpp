// A driver library of five functions; without the last one, or with a need that nobody meets.
#ifdef NEEDS_MORE
extern "C" int NobodyHasThis();
#endif

extern "C" {
int DriverGetPosition() { return 0; }
int DriverMoveTo() { return 0; }
int DriverSelect() { return 0; }
int DriverGetCount() { return 0; }
#ifndef WITHOUT_RECONNECT
#ifdef NEEDS_MORE
int DriverReconnect() { return NobodyHasThis(); }
#else
int DriverReconnect() { return 0; }
#endif
#endif
}
