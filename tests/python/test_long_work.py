"""Operations that take a while: other threads run beside them, and Ctrl+C cancels them whole."""
import os
import signal
import threading
import time
import unittest

import numpy as np
import veldraw

from samples import Folder

PASSES = 100_000_000


class LongWork(unittest.TestCase):
    def setUp(self):
        noise = np.random.default_rng(7).random(40_000)
        self.data = veldraw.open(Folder(self).grid(dimensions=(200, 200, 1), p=noise, q=np.arange(40_000) ** 2))
        self.zone = self.data.zones[1]
        self.before = np.array(self.zone['p'])

    def smooth_until_cancelled(self):
        """Smooths for minutes, unless somebody presses Ctrl+C; returns when it was cancelled, by the clock."""
        with self.assertRaises(KeyboardInterrupt):
            veldraw.smooth(zone=1, variable='p', passes=PASSES, coefficient=1e-9)
        return time.monotonic()

    def interrupt_after(self, seconds):
        pressed = []
        def press():
            pressed.append(time.monotonic())
            os.kill(os.getpid(), signal.SIGINT)
        timer = threading.Timer(seconds, press)
        timer.start()
        self.addCleanup(timer.join)
        return pressed

    def test_ctrl_c_cancels_at_once_and_nothing_has_changed(self):
        pressed = self.interrupt_after(0.3)
        ended = self.smooth_until_cancelled()
        self.assertLess(ended - pressed[0], 1.0)
        np.testing.assert_array_equal(self.before, np.asarray(self.zone['p']))
        with self.assertRaises(veldraw.Error):
            veldraw.undo()
        veldraw.smooth(zone=1, variable='p')
        self.assertTrue((np.asarray(self.zone['p']) != self.before).any())

    def test_what_another_handler_raises_cancels_as_well(self):
        def refuse(*_):
            raise TimeoutError('late')
        old = signal.signal(signal.SIGALRM, refuse)
        self.addCleanup(signal.signal, signal.SIGALRM, old)
        signal.setitimer(signal.ITIMER_REAL, 0.2)
        with self.assertRaises(TimeoutError):
            veldraw.smooth(zone=1, variable='p', passes=PASSES, coefficient=1e-9)

    def test_another_thread_counts_while_the_kernel_computes(self):
        counted, is_over = [0], threading.Event()
        def count():
            while not is_over.is_set():
                counted[0] += 1
        thread = threading.Thread(target=count)
        self.interrupt_after(0.5)
        thread.start()
        before = counted[0]
        self.smooth_until_cancelled()
        during = counted[0] - before
        is_over.set()
        thread.join()
        self.assertGreater(during, 10_000)

    def test_another_thread_that_wants_the_session_waits(self):
        done = []
        def rename():
            veldraw.rename_zone(zone=1, name='later')
            done.append(time.monotonic())
        thread = threading.Timer(0.1, rename)
        thread.start()
        self.interrupt_after(0.5)
        ended = self.smooth_until_cancelled()
        thread.join()
        self.assertEqual('later', self.zone.name)
        self.assertGreater(done[0], ended - 0.1)

    def test_values_are_read_on_many_threads(self):
        sums = []
        threads = [threading.Thread(target=lambda: sums.append(float(np.asarray(self.zone['q']).sum()))) for _ in range(8)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual([float((np.arange(40_000.0) ** 2).sum())] * 8, sums)


if __name__ == '__main__':
    unittest.main()
