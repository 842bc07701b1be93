/* A well-behaved driver with two simulated manipulators, built once with FAULT as None and once for each of
 * the faults below. Three are the preprocessor's, which sees no enumeration: LACKS_RECONNECT,
 * STATES_LONG_SETTLING, NEEDS_A_STRANGER_SYMBOL. */
#define _GNU_SOURCE
#include <fcntl.h>
#include <locale.h>
#include <pthread.h>
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>
#include <unistd.h>

#include "drivers/TravoDriver.h"

enum {
    None,
    AbortsInReading,
    CrashesInSelect,
    ExitsInCount,
    HangsInReading,
    TakesLongToSelect,
    ReadsSlowly,
    WritesSixtyFourBits,
    CountsSeven,
    AnswersZero,
    CountsFromZero,
    ReadsNanometres,
    FailsReadingOfSecond,
    SelectsAStranger,
    LosesOneInReconnect,
    MovesOnReconnect,
    RefusesMoves,
    ReturnsAtArrival,
    GivesCommandedPlace,
    GivesOldPlace,
    MovesAxisByAxis,
    ArrivesLate,
    TakesAnyPlace,
    IgnoresStop,
    FailsBehindStop,
    TakesInterrupts,
    ChangesLocale,
    Prints,
    PrintsAtTheEnd,
    CrashesOnUnload,
    LeavesAHandlerForTheEnd,
    LeavesAThread,
    LeavesADescriptor,
    LeavesAProcess,
    /* No fault: writes each place that it is sent to into the file that RECORD_OF_MOVES names. */
    RecordsMoves
};

#define HAS(fault) (FAULT == (fault))

typedef struct {
    int32_t from[3], to[3];
    double begun; /* ms */
} Needle;

static Needle needles[2] = {{{300, 12500, 12500}, {300, 12500, 12500}, 0},
                            {{12500, 12500, 12500}, {12500, 12500, 12500}, 0}};
static int32_t selected = 1;
static int32_t connected = 2;

#ifdef STATES_LONG_SETTLING
const int32_t DriverSettlingMilliseconds = 400;
#else
const int32_t DriverSettlingMilliseconds = 20;
#endif

static double Now(void) {
    struct timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return (double)now.tv_sec * 1e3 + (double)now.tv_nsec / 1e6;
}

static void Sleep(double milliseconds) {
    const struct timespec time = {(time_t)(milliseconds / 1e3), (long)((long)milliseconds % 1000 * 1000000)};
    nanosleep(&time, NULL);
}

static int32_t Length(const Needle* needle, int axis) { return abs(needle->to[axis] - needle->from[axis]); }

static int32_t Longest(const Needle* needle) {
    int32_t longest = 0;
    for (int axis = 0; axis < 3; ++axis) {
        longest = Length(needle, axis) > longest ? Length(needle, axis) : longest;
    }
    return longest;
}

static void Place(const Needle* needle, int32_t place[3]) {
    const double speed = HAS(ArrivesLate) ? 1 : HAS(MovesAxisByAxis) ? 12 : TRAVO_DRIVER_COUNTS_PER_MS;
    double way = (Now() - needle->begun) * speed;
    const int32_t longest = Longest(needle);
    for (int axis = 0; axis < 3; ++axis) {
        const int32_t length = HAS(MovesAxisByAxis) ? Length(needle, axis) : longest;
        const double part = way >= length ? 1 : way / length;
        place[axis] = needle->from[axis] + (int32_t)((needle->to[axis] - needle->from[axis]) * part);
        if (HAS(MovesAxisByAxis)) {
            way = way > length ? way - length : 0;
        }
    }
    if (HAS(GivesCommandedPlace) || (HAS(GivesOldPlace) && way < longest)) {
        memcpy(place, HAS(GivesOldPlace) ? needle->from : needle->to, sizeof(needle->to));
    }
}

static void SetOut(Needle* needle, const int32_t to[3]) {
    int32_t here[3];
    Place(needle, here);
    memcpy(needle->from, here, sizeof(here));
    memcpy(needle->to, to, sizeof(needle->to));
    needle->begun = Now();
}

static void* Stay(void* nothing) {
    for (;;) {
        pause();
    }
    return nothing;
}

static void Record(int32_t x, int32_t y, int32_t z) {
    FILE* record = HAS(RecordsMoves) ? fopen(getenv("RECORD_OF_MOVES"), "a") : NULL;
    if (record != NULL) {
        fprintf(record, "%d %d %d %d\n", selected, x, y, z);
        fclose(record);
    }
}

static void Ignore(int signal) { (void)signal; }

/* Not bound to the library as a handler of atexit is: it is called when its code is gone. */
static void AtTheEnd(int code, void* nothing) {
    (void)code;
    (void)nothing;
}

#ifdef NEEDS_A_STRANGER_SYMBOL
extern void SymbolThatNobodyHas(void);
void (*const stranger)(void) = SymbolThatNobodyHas;
#endif

__attribute__((destructor)) static void AtUnloading(void) {
    if (HAS(PrintsAtTheEnd)) {
        printf("good bye\n");
    }
    if (HAS(CrashesOnUnload)) {
        raise(SIGSEGV);
    }
}

int32_t DriverGetPosition(int32_t* number, int32_t* x, int32_t* y, int32_t* z) {
    int32_t place[3];
    if (HAS(AbortsInReading)) {
        abort();
    }
    if (HAS(HangsInReading)) {
        pause();
    }
    if (HAS(ReadsSlowly)) {
        Sleep(80);
    }
    if (HAS(FailsReadingOfSecond) && selected == 2) {
        return -5;
    }
    if (HAS(FailsBehindStop) && connected == 0) {
        return -5;
    }
    Place(&needles[selected - 1], place);
    *number = HAS(CountsFromZero) ? selected - 1 : selected;
    *x = HAS(ReadsNanometres) ? place[0] * 1000 : place[0];
    *y = place[1];
    *z = place[2];
    if (HAS(WritesSixtyFourBits)) {
        const int64_t wide = place[2];
        memcpy(z, &wide, sizeof(wide));
    }
    return 0;
}

int32_t DriverMoveTo(int32_t x, int32_t y, int32_t z) {
    const int32_t to[3] = {x, y, z};
    Record(x, y, z);
    if (HAS(RefusesMoves)) {
        return -9;
    }
    for (int axis = 0; axis < 3; ++axis) {
        if (!HAS(TakesAnyPlace) &&
            (to[axis] < TRAVO_DRIVER_LOWEST_COUNT || to[axis] > TRAVO_DRIVER_HIGHEST_COUNT)) {
            return -2;
        }
    }
    SetOut(&needles[selected - 1], to);
    if (HAS(ReturnsAtArrival)) {
        Sleep(Longest(&needles[selected - 1]) / (double)TRAVO_DRIVER_COUNTS_PER_MS + 1);
    }
    return 0;
}

int32_t DriverSelect(int32_t number, int32_t* answer) {
    if (HAS(CrashesInSelect)) {
        raise(SIGSEGV);
    }
    if (HAS(TakesLongToSelect) && number == 5) {
        Sleep(2200);
    }
    if (HAS(SelectsAStranger) && number == 3) {
        selected = 1;
        return 0;
    }
    if (number < 1 || number > 2) {
        return -1;
    }
    selected = number;
    *answer = HAS(AnswersZero) ? 0 : 1;
    return 0;
}

int32_t DriverGetCount(int32_t* count) {
    if (HAS(ExitsInCount)) {
        exit(0);
    }
    if (HAS(Prints)) {
        printf("two manipulators\n");
    }
    if (HAS(TakesInterrupts)) {
        signal(SIGINT, Ignore);
    }
    if (HAS(ChangesLocale)) {
        setlocale(LC_NUMERIC, "C.UTF-8");
    }
    if (HAS(LeavesAHandlerForTheEnd)) {
        on_exit(AtTheEnd, NULL);
    }
    if (HAS(LeavesAThread)) {
        pthread_t thread;
        /* It sleeps in the C library from its first step on, which stays where this one is unloaded. */
        pthread_create(&thread, NULL, (void* (*)(void*))(void (*)(void))pause, NULL);
    }
    if (HAS(LeavesADescriptor)) {
        (void)!open("/dev/null", O_RDONLY);
    }
    if (HAS(LeavesAProcess) && fork() == 0) {
        Stay(NULL);
    }
    *count = HAS(CountsSeven) ? 7 : connected;
    return 0;
}

#ifndef LACKS_RECONNECT
int32_t DriverReconnect(void) {
    if (HAS(LosesOneInReconnect)) {
        connected = 1;
    }
    if (HAS(MovesOnReconnect)) {
        const int32_t home[3] = {0, 0, 0};
        SetOut(&needles[0], home);
        Sleep(20);
    }
    return 0;
}
#endif

int32_t DriverStop(int32_t number) {
    int32_t here[3];
    if (number < 1 || number > 2) {
        return -1;
    }
    if (HAS(IgnoresStop)) {
        return 0;
    }
    Place(&needles[number - 1], here);
    SetOut(&needles[number - 1], here);
    if (HAS(FailsBehindStop)) {
        connected = 0;
    }
    return 0;
}
