// Packs pieces as standard MIDI files: a track with tempo and title, then one per instrument.
#pragma once

#include "demo/media/byte_writer.h"
#include "demo/media/composer.h"

Bytes PackMidi(const Piece& piece);
