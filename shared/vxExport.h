// Marks what a shared library of this project shows to others; everything else is hidden.
#pragma once

#define VX_EXPORT __attribute__((visibility("default")))
