// The sound of the virtual drive: streams a stretch of a disc to the wave device on a thread of its
// own.
#pragma once

#include <cstdint>
#include <memory>

#include "demo/drive/disc.h"

// Ends what plays and starts a new stretch, from its first sector to before toSector. Without a
// wave device nothing is heard and nothing fails.
void StartDiscSound(std::shared_ptr<const Disc> disc, uint32_t fromSector, uint32_t toSector);

// Silence at once; returns when the thread has ended.
void StopDiscSound();

// While muted the disc plays on without being heard.
void MuteDiscSound(bool muted);
