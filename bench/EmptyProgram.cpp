// SPDX-License-Identifier: MIT
// What every program in C++ does before and after its work.
#include <iostream>

int main() { std::cout.flush(); }
