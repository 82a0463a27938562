// How the measurements find the empty dialog program's window.
#pragma once

constexpr char kEmptyDialogTitle[] = "Empty Dialog";
