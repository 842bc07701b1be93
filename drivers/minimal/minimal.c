/* A complete driver with two simulated manipulators: the smallest that keeps the whole contract. Whoever has
 * real stages replaces the three functions at the top; the rest stays as it is. */
#include <time.h>

#include "drivers/TravoDriver.h"

#define CONNECTED 2
/* Negative statuses: which number means what is a library's own affair. */
#define NOT_CONNECTED (-1)
#define OUT_OF_RANGE (-2)

const int32_t DriverSettlingMilliseconds = 0;

/* A way in time: from, to, and when it was begun, in ms. */
static struct {
    int32_t from[3], to[3];
    double begun;
} needles[CONNECTED] = {{{12500, 12500, 12500}, {12500, 12500, 12500}, 0},
                        {{12500, 12500, 12500}, {12500, 12500, 12500}, 0}};
static int32_t selected = 1;

static double Now(void) {
    struct timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return (double)now.tv_sec * 1e3 + (double)now.tv_nsec / 1e6;
}

/* Where a needle is now: so far along its straight line as the axis with the longest way has come. */
static void Place(int32_t number, int32_t place[3]) {
    const int32_t* from = needles[number - 1].from;
    const int32_t* to = needles[number - 1].to;
    double longest = 0, way = (Now() - needles[number - 1].begun) * TRAVO_DRIVER_COUNTS_PER_MS;
    for (int axis = 0; axis < 3; ++axis) {
        const double length = to[axis] > from[axis] ? to[axis] - from[axis] : from[axis] - to[axis];
        longest = length > longest ? length : longest;
    }
    for (int axis = 0; axis < 3; ++axis) {
        place[axis] =
            way >= longest ? to[axis] : from[axis] + (int32_t)((to[axis] - from[axis]) * way / longest);
    }
}

/* Sets out from where the needle is, and does not wait. */
static void SetOut(int32_t number, const int32_t to[3]) {
    int32_t here[3];
    Place(number, here);
    for (int axis = 0; axis < 3; ++axis) {
        needles[number - 1].from[axis] = here[axis];
        needles[number - 1].to[axis] = to[axis];
    }
    needles[number - 1].begun = Now();
}

int32_t DriverGetPosition(int32_t* number, int32_t* x, int32_t* y, int32_t* z) {
    int32_t place[3];
    Place(selected, place);
    *number = selected, *x = place[0], *y = place[1], *z = place[2];
    return 0;
}

int32_t DriverMoveTo(int32_t x, int32_t y, int32_t z) {
    const int32_t to[3] = {x, y, z};
    for (int axis = 0; axis < 3; ++axis) {
        if (to[axis] < TRAVO_DRIVER_LOWEST_COUNT || to[axis] > TRAVO_DRIVER_HIGHEST_COUNT) {
            return OUT_OF_RANGE;
        }
    }
    SetOut(selected, to);
    return 0;
}

int32_t DriverSelect(int32_t number, int32_t* answer) {
    if (number < 1 || number > CONNECTED) {
        return NOT_CONNECTED;
    }
    selected = number;
    *answer = 1;
    return 0;
}

int32_t DriverGetCount(int32_t* count) {
    *count = CONNECTED;
    return 0;
}

int32_t DriverReconnect(void) { return 0; }

int32_t DriverStop(int32_t number) {
    int32_t here[3];
    if (number < 1 || number > CONNECTED) {
        return NOT_CONNECTED;
    }
    Place(number, here);
    SetOut(number, here);
    return 0;
}
