// A folder that lives as long as a test.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  // The folder's full path, in this system's own form, and that of a file in it.
  const std::string& Path() const { return path_; }
  std::filesystem::path File(const std::string& name) const;

  // The full path of a file in the folder, joined as the program joins paths.
  std::string operator/(const std::string& name) const { return path_ + "\\" + name; }

  // Write a file, in a folder made for it, and several that hold their own names.
  void Write(const std::string& name, const std::string& content = "image") const;
  void WriteAll(const std::vector<std::string>& names) const;

  // Removes everything in the folder.
  void Clear() const;

  // The content of a file with its line ends as "\n"; empty when it is missing.
  std::string Read(const std::string& name) const;

  // The sorted names of all entries.
  std::vector<std::string> Names() const;

 private:
  std::string path_;
};
