// How often a test allocates. Linking this replaces the program's operators new and delete.
#pragma once

// By this thread since it began; -1 where a sanitizer has operators of its own, which must stay in place.
long AllocationsSoFar();
