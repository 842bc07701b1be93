"""Readers that have gone, and a driver that throws what is no failure of ours."""
import os
import subprocess

import program
from program import Case


class Streams(Case):
    def test_a_program_whose_readers_have_gone_runs_on(self):
        reading, writing = os.pipe()
        os.close(reading)
        # Much is said, and nobody hears it.
        run = self.start(stdout=writing, stderr=writing, environment={"QT_LOGGING_RULES": "*=true"})
        os.close(writing)
        run.wait_for_log()
        self.assertEqual(run.end(), 0)

    def test_the_workbench_outlives_its_reader(self):
        reading, writing = os.pipe()
        os.close(reading)
        workbench = subprocess.Popen(
            [os.path.join(program.Folder.build, "workbench/travo-workbench"), "--headless", "--end-with-input"],
            stdin=subprocess.PIPE, stdout=writing, env=dict(os.environ, XDG_RUNTIME_DIR=self.folder / "runtime"))
        os.close(writing)
        workbench.stdin.close()
        self.assertEqual(workbench.wait(program.LIMIT), 0)

    def test_a_driver_that_throws_a_number_is_a_failed_call_and_no_more(self):
        self.driver("throw")
        run = self.start().wait_for_log("Manipulator : Communication failed")
        self.assertEqual(run.end(), 0)
