#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace host {

/// Why a file cannot be a module of this machine; empty when it can. The sentence
/// has neither the file's name nor a full stop.
std::string whyNoModule(const std::filesystem::path&);

/// The names, as the compiler writes them, that a module needs of others and cannot do without. Empty for
/// what is no whole module of this machine.
std::vector<std::string> neededSymbols(const std::filesystem::path&);

/// The libraries that it names.
std::vector<std::string> neededLibraries(const std::filesystem::path&);

}
