#pragma once

#include <cstddef>
#include <string>

// What terminals are made to show in the benchmarks: bytes as a host sends them to a VT220 of 80
// columns and 24 rows. Each text is at least `size` bytes long and ends with a whole sequence.
namespace quorvel::bench {

std::string PlainLines(std::size_t size);    // a listing: lines of 20 to 76 characters
std::string Rewrites(std::size_t size);      // the whole screen, over and over with one character
std::string ShortLines(std::size_t size);    // one character a line
std::string CursorMoves(std::size_t size);   // a place somewhere and one character there
std::string DenseColours(std::size_t size);  // every cell with attributes of its own
std::string EntryForms(std::size_t size);    // a data-entry form painted over and over

}  // namespace quorvel::bench
