/* What a manipulator driver is to TRAVO: the whole contract. Plain C; a driver may be written in anything
 * that makes a shared library with C linkage.
 *
 * The library is named libManipulatorDriver.so and lies in the program's folder. It is loaded once, with all
 * its symbols resolved at loading, and unloaded when the program ends: then it must have closed what it
 * opened and left no thread, no handler and no child process behind. It is loaded into a process that it
 * shares with the caller, so it writes nothing to standard output or standard error, changes no signal
 * handling, locale, current folder or environment, and never ends the process.
 *
 * THREADS. All calls come from one thread, one after the other; never two at a time. A library that serves an
 * event loop of the caller inside a call may be called again there.
 *
 * STATUS. Every function returns one. Negative is a failure; zero and every positive value are success. After
 * a failure the values behind the pointers are not used, and nothing has been set in motion. Which negative
 * number means what is the library's own affair; texts for people belong in a log file of its own.
 *
 * POINTERS are always valid, and what they point to is 0 before the call.
 *
 * NUMBERS of manipulators are 1-based: 1 to 4. TRAVO itself counts from 0.
 *
 * POSITIONS are counts of the manipulator's own axes, 0 to 25000 on each, ends included. TRAVO sends no
 * other; a library refuses any other. One count is taken for one common unit of the workstation (about a
 * micrometre), and the axes are right-angled. X advances the needle along its shaft. A reading outside the
 * range is handed up as it is: TRAVO takes it for "no position".
 *
 * TIMES. A call returns within TRAVO_DRIVER_CALL_LIMIT_MS; DriverReconnect and whichever call connects first
 * within TRAVO_DRIVER_CONNECT_LIMIT_MS. A call that hangs hangs the program: a library bounds its own waits
 * and answers with a negative status. DriverGetPosition is called five times a second while the program runs
 * and should take no longer than 50 ms.
 */
#ifndef TRAVO_DRIVER_H
#define TRAVO_DRIVER_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Ends of the range of counts, both included. */
#define TRAVO_DRIVER_LOWEST_COUNT 0
#define TRAVO_DRIVER_HIGHEST_COUNT 25000
/* The most manipulators that TRAVO works with. */
#define TRAVO_DRIVER_MOST_MANIPULATORS 4
/* Counts that a manipulator is taken to travel in a millisecond on the axis with the longest way: a move is
 * waited for 0.25 ms for each of its counts. */
#define TRAVO_DRIVER_COUNTS_PER_MS 4
/* The most that a call may take, in ms. */
#define TRAVO_DRIVER_CALL_LIMIT_MS 2000
#define TRAVO_DRIVER_CONNECT_LIMIT_MS 10000
/* The most that a library may state as its settling time, in ms. */
#define TRAVO_DRIVER_MOST_SETTLING_MS 300

#if defined(__GNUC__)
#define TRAVO_DRIVER_EXPORT __attribute__((visibility("default")))
#else
#define TRAVO_DRIVER_EXPORT
#endif

/* Number and present position of the selected manipulator, also while it moves: the place where it is during
 * the call, never one that is only commanded or remembered. What cannot be read is a failure. */
TRAVO_DRIVER_EXPORT int32_t DriverGetPosition(int32_t* number, int32_t* x, int32_t* y, int32_t* z);

/* Starts the selected manipulator towards the position, along a straight line, and returns as soon as the
 * manipulator has taken the move, before it arrives. It arrives, where the hardware can, within 0.25 ms for
 * each count of the longest axis, counted from the return of this call, and stands still within the settling
 * time behind that; a slower one makes TRAVO read it early. A move to where it stands is a success. A
 * position out of range is refused before anything moves. After a failure nothing has been set in motion, but
 * where the library cannot know whether the manipulator has taken the move: then it gives no position until
 * DriverReconnect. */
TRAVO_DRIVER_EXPORT int32_t DriverMoveTo(int32_t x, int32_t y, int32_t z);

/* Makes this manipulator the selected one; nothing moves. The answer is handed up: not 0 when it is selected.
 * At the start of the program, with no manipulator connected, the answer 0 to number 1 means that what is
 * there is not of the required version, and ends the program. A number that is not connected leaves the
 * selection as it is, whether it is answered with a negative status or with the answer 0. */
TRAVO_DRIVER_EXPORT int32_t DriverSelect(int32_t number, int32_t* answer);

/* How many manipulators are connected, 0 to 4: TRAVO takes the numbers from 1 to this one as connected. No
 * wire is opened anew for it. */
TRAVO_DRIVER_EXPORT int32_t DriverGetCount(int32_t* count);

/* Connects to the manipulators anew: the only call, behind the first, that opens a wire. A manipulator that
 * was lost and answers again works again after it. Nothing moves, nothing is homed. Where the selected
 * manipulator is gone another one that is connected is selected. A manipulator that stays away is no failure
 * of this call. */
TRAVO_DRIVER_EXPORT int32_t DriverReconnect(void);

/* OPTIONAL. Ends the motion of that manipulator (1 to 4, selected or not) at once and keeps its position:
 * what was queued is forgotten, later readings are true, and later moves are taken. 0 when the manipulator
 * has taken it, and for one that stands still; negative where it cannot be stopped. A library without this
 * symbol cannot be stopped by TRAVO. */
TRAVO_DRIVER_EXPORT int32_t DriverStop(int32_t number);

/* OPTIONAL, a value and no function. The settling time that the library states, in ms, 0 to
 * TRAVO_DRIVER_MOST_SETTLING_MS: how long after the time of a move the manipulator may still be on its way.
 * TRAVO does not wait for it, so it reads that much early. A library without this symbol states 0. */
TRAVO_DRIVER_EXPORT extern const int32_t DriverSettlingMilliseconds;

#ifdef __cplusplus
}
#endif

#endif
