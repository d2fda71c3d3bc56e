#pragma once

namespace tessel::cli {

// Ctrl-C (SIGINT) and SIGTERM ask a long run to stop between two steps, so
// that it can finish the file in hand, drop the unfinished ones and remove
// its temporary files. A second signal ends the program at once.
void catchStopSignals();
// The signal that asked to stop, or 0.
int stopSignal();

}  // namespace tessel::cli
