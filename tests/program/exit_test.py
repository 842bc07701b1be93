"""With what code the program ends, and that it does."""
import os
import signal
import subprocess

from program import Case, read


class Exit(Case):
    def see_one_sentence(self, display, sentence):
        run = self.start(stderr=subprocess.PIPE, environment={"QT_QPA_PLATFORM": None, "DISPLAY": display})
        self.assertEqual(run.code(), 1)
        self.assertEqual(run.process.stderr.read().decode(), sentence + "\n")

    def test_no_display_is_one_sentence_and_1(self):
        self.see_one_sentence(None, "TRAVO needs a display, and DISPLAY names none.")

    def test_a_display_that_is_not_there_is_one_sentence_and_1(self):
        self.see_one_sentence(":9999", 'TRAVO needs a display, and ":9999" cannot be opened.')

    def test_a_second_signal_ends_a_program_that_hangs_in_its_driver(self):
        self.driver("hang")
        run = self.start().wait_for_log()
        run.wait_for_handlers().ask_to_end()
        self.assertIsNone(run.process.poll())
        run.ask_to_end()
        self.assertEqual(run.code(), 1)

    def test_signals_on_top_of_one_another_close_a_program_that_lives_as_one_does(self):
        run = self.start().wait_for_log().wait_for_handlers()
        for number in (signal.SIGTERM, signal.SIGHUP, signal.SIGTERM):
            run.process.send_signal(number)
        self.assertEqual(run.code(), 0)
        self.assertIn("XYOffset=100", read(self.folder.settings))

    def test_a_pipe_in_the_logs_place_does_not_hang_the_start(self):
        log = self.folder / "data/Zelvo/Shared/Data/debugTRAVO.txt"
        os.makedirs(os.path.dirname(log))
        os.mkfifo(log)
        # The program says that it cannot start, and ends with that box.
        self.assertEqual(self.start().end(), 1)
