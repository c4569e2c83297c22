// Long work that keeps windows alive.
#pragma once

/// Lets windows be drawn and timers run. What the user types or clicks, and what other programs send, waits until the
/// work is done: it might change what is being worked on.
void LaisserPasserEvenements();
