// Small text helpers shared by the loaders and the sound layer.
#pragma once
#include <string>
#include <vector>

namespace nox {

// Splits `s` at each occurrence of `delimiter`. After each cut the text and one
// further character are removed, so a delimiter longer than one character leaves
// its remainder at the start of the next token. The text after the last delimiter
// is always appended, even when empty: "" gives one empty token, and "a,,b" gives
// "a", "", "b". An empty delimiter gives `s` as the only token.
std::vector<std::string> Tokenize(std::string s, std::string delimiter);

// `name` + ".wav".
std::string AppendSuffix(const std::string& name);

}  // namespace nox
