// Keeps windows painted while a long piece of work runs in one message.
#pragma once

// Called once per block, entry or directory. Lets paint messages through and nothing else: no
// timers and no input, so nothing else of the program runs inside the work.
void PaintWaitingWindows();

// Forgets the keys and clicks that came during a part of the work, before anything else shows: they
// were not meant for what stands there then.
void DropWaitingInput();
