#include "tests/support/temp_folder.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

namespace fs = std::filesystem;

namespace {

// Texts hold UTF-8 in every build; the library would take them for the C locale's on Windows.
fs::path PathOf(const std::string& text) {
  return {std::u8string(text.begin(), text.end())};
}

}  // namespace

TempFolder::TempFolder() {
  std::random_device random;
  path_ = (fs::temp_directory_path() / ("tessara-" + std::to_string(random()))).string();
  fs::create_directory(path_);
}

TempFolder::~TempFolder() {
  std::error_code error;
  fs::remove_all(path_, error);
}

void TempFolder::Write(const std::string& name, const std::string& content) const {
  std::ofstream(PathOf(path_ + "/" + name), std::ios::binary) << content;
}

void TempFolder::WriteAll(const std::vector<std::string>& names) const {
  for (const std::string& name : names) {
    Write(name, name);
  }
}

void TempFolder::MakeFolder(const std::string& name) const {
  fs::create_directory(PathOf(path_ + "/" + name));
}

void TempFolder::Clear() const {
  for (const fs::directory_entry& entry : fs::directory_iterator(path_)) {
    fs::remove_all(entry.path());
  }
}

std::string TempFolder::Read(const std::string& name) const {
  std::ifstream file(PathOf(path_ + "/" + name), std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
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
