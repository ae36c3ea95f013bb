// Files as tests write and read them: whole, byte for byte.
#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace verlink::test {

/// Empty where there is no such file.
inline std::string Held(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::stringstream content;
    content << file.rdbuf();
    return content.str();
}

inline void Put_File(const std::filesystem::path& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
}

}  // namespace verlink::test
