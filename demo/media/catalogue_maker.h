// Writes the demo's disc catalogue: the first demo disc and a shelf of invented ones.
#pragma once

#include "demo/media/byte_writer.h"
#include "demo/media/pieces.h"

Bytes PackCatalogue(const DemoDisc& knownDisc);
