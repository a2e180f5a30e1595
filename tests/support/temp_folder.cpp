#include "tests/support/temp_folder.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>

namespace fs = std::filesystem;

TempFolder::TempFolder()
    : path_((fs::temp_directory_path() / ("tessara-" + std::to_string(std::random_device()())))
                .string()) {
  fs::create_directory(path_);
}

TempFolder::~TempFolder() {
  std::error_code error;
  fs::remove_all(path_, error);
}

// Texts hold UTF-8 in every build; the library would take them for the C locale's on Windows.
fs::path TempFolder::File(const std::string& name) const {
  return fs::path(path_) / std::u8string(name.begin(), name.end());
}

void TempFolder::Write(const std::string& name, const std::string& content) const {
  fs::create_directories(File(name).parent_path());
  std::ofstream(File(name), std::ios::binary) << content;
}

void TempFolder::WriteAll(const std::vector<std::string>& names) const {
  for (const std::string& name : names) {
    Write(name, name);
  }
}

void TempFolder::Clear() const {
  for (const std::string& name : Names()) {
    fs::remove_all(File(name));
  }
}

std::string TempFolder::Read(const std::string& name) const {
  std::ifstream file(File(name), std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  std::erase(text, '\r');
  return text;
}

std::vector<std::string> TempFolder::Names() const {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(path_)) {
    const std::u8string name = entry.path().filename().u8string();
    names.emplace_back(name.begin(), name.end());
  }
  std::sort(names.begin(), names.end());
  return names;
}
