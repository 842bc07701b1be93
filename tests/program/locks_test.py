"""One program of a user, and one of a program folder."""
import os
import signal

from program import Case, put, wait_until


class Locks(Case):
    def see_refused(self, run):
        self.assertEqual(run.end(), 1)
        self.assertEqual(run.log(), "", "a program that is refused writes no log")

    def test_a_second_program_is_refused_and_the_first_runs_on(self):
        first = self.start().wait_for_log()
        self.see_refused(self.start(data="other"))
        self.assertEqual(first.end(), 0)
        self.assertEqual(self.start(data="other").wait_for_log().end(), 0)

    def test_two_runs_of_one_program_folder_are_kept_apart_under_two_runtime_folders(self):
        first = self.start().wait_for_log()
        self.folder.make_runtime("shell")
        self.see_refused(self.start(runtime="shell", data="other"))
        self.assertEqual(first.end(), 0)

    def test_a_program_killed_at_its_locks_first_moment_locks_nobody_out(self):
        lock = self.folder / "runtime/TRAVO.lock"
        first = self.start()
        wait_until(lambda: os.path.exists(lock), "the lock")
        first.process.send_signal(signal.SIGKILL)
        self.assertEqual(first.code(), -signal.SIGKILL)
        self.assertEqual(self.start(data="other").wait_for_log().end(), 0)

    def test_what_stands_in_the_lock_says_nothing(self):
        # Nothing yet, another host, a program that lives, garbage.
        for number, text in enumerate(("", "1\nTRAVO\nelsewhere\n", f"{os.getpid()}\npython3\n{os.uname().nodename}\n",
                                       "\xff" * 5000)):
            with self.subTest(text=text[:20]):
                put(self.folder / "runtime/TRAVO.lock", text)
                put(self.folder / "TRAVO/TRAVO.lock", text)
                self.assertEqual(self.start(data=f"data{number}").wait_for_log().end(), 0)

    def test_a_pipe_or_a_folder_in_the_locks_place_neither_hangs_nor_refuses(self):
        os.mkfifo(self.folder / "runtime/TRAVO.lock")
        os.mkdir(self.folder / "TRAVO/TRAVO.lock")
        self.assertEqual(self.start().wait_for_log().end(), 0)
