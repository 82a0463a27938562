// The instruments' tables.
#include "demo/synth/timbres.h"

const Timbre kTimbreTable[kTimbres] = {
    // piano
    {{1, 0.55F, 0.30F, 0.22F, 0.12F, 0.09F, 0.05F, 0.03F, 0.02F, 0.01F},
     0.004F,
     0.9F,
     0.0F,
     0.18F,
     0.30F},
    // bells
    {{1, 0.0F, 0.35F, 0.0F, 0.20F, 0.10F, 0.0F, 0.08F, 0.0F, 0.05F},
     0.002F,
     1.1F,
     0.0F,
     0.50F,
     0.26F},
    // organ
    {{1, 0.70F, 0.45F, 0.35F, 0.0F, 0.20F, 0.0F, 0.15F, 0.0F, 0.0F},
     0.020F,
     1.0F,
     0.9F,
     0.08F,
     0.16F},
    // plucked string
    {{1, 0.70F, 0.50F, 0.35F, 0.28F, 0.20F, 0.14F, 0.10F, 0.07F, 0.05F},
     0.003F,
     0.45F,
     0.0F,
     0.12F,
     0.27F},
    // bass
    {{1, 0.60F, 0.25F, 0.12F, 0.06F, 0.03F, 0.0F, 0.0F, 0.0F, 0.0F},
     0.006F,
     0.7F,
     0.25F,
     0.10F,
     0.40F},
    // strings
    {{1, 0.50F, 0.33F, 0.25F, 0.16F, 0.12F, 0.08F, 0.05F, 0.03F, 0.02F},
     0.120F,
     1.0F,
     0.8F,
     0.35F,
     0.13F},
    // brass
    {{1, 0.80F, 0.65F, 0.45F, 0.30F, 0.20F, 0.12F, 0.08F, 0.05F, 0.03F},
     0.040F,
     0.6F,
     0.7F,
     0.12F,
     0.17F},
    // flute
    {{1, 0.22F, 0.10F, 0.04F, 0.02F, 0.0F, 0.0F, 0.0F, 0.0F, 0.0F},
     0.050F,
     0.8F,
     0.8F,
     0.14F,
     0.27F},
    // synthetic lead: a soft square
    {{1, 0.0F, 0.33F, 0.0F, 0.18F, 0.0F, 0.10F, 0.0F, 0.05F, 0.0F},
     0.010F,
     0.7F,
     0.6F,
     0.12F,
     0.20F},
};

uint8_t TimbreOfProgram(int program) {
    enum : uint8_t { kPiano, kBells, kOrgan, kPluck, kBass, kStrings, kBrass, kFlute, kLead };
    // General MIDI names its instruments in families of eight.
    static const uint8_t kFamilies[16] = {kPiano,   kBells, kOrgan, kPluck, kBass, kStrings,
                                          kStrings, kBrass, kFlute, kFlute, kLead, kStrings,
                                          kLead,    kPluck, kBells, kLead};
    return kFamilies[(program & 127) / 8];
}

const Drum& DrumOfKey(int key) {
    static const Drum kKick = {58, 3.0F, 0.11F, 0.9F, 0.10F, 0.010F, 0.3F};
    static const Drum kSnare = {185, 1.0F, 0.07F, 0.35F, 0.45F, 0.080F, 0.7F};
    static const Drum kClosedHat = {6000, 0.0F, 0.01F, 0.0F, 0.22F, 0.025F, 1.0F};
    static const Drum kOpenHat = {6000, 0.0F, 0.01F, 0.0F, 0.22F, 0.160F, 1.0F};
    static const Drum kTom = {120, 1.5F, 0.16F, 0.6F, 0.08F, 0.030F, 0.4F};
    static const Drum kCrash = {5000, 0.0F, 0.01F, 0.0F, 0.30F, 0.500F, 0.9F};
    switch (key) {
        case 35:
        case 36:
            return kKick;
        case 37:
        case 38:
        case 39:
        case 40:
            return kSnare;
        case 46:
            return kOpenHat;
        case 49:
        case 51:
        case 52:
        case 57:
            return kCrash;
        case 41:
        case 43:
        case 45:
        case 47:
        case 48:
        case 50:
            return kTom;
        default:
            return kClosedHat;
    }
}
