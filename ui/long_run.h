// Keeps windows painted while a long piece of work runs in one message.
#pragma once

// Called once per block, entry or directory. Lets paint messages through and nothing else: no
// timers and no input, so nothing else of the program runs inside the work.
void PaintWaitingWindows();
