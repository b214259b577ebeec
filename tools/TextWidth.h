// SPDX-License-Identifier: MIT
// How much room a text takes on a terminal.
#pragma once

#include <cstddef>
#include <string_view>

// In columns: two for what East Asian texts and pictures take, none for marks that join the letter before.
std::size_t TextWidth(std::string_view utf8);
