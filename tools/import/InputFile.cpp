#include "tools/import/InputFile.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <vector>

namespace zntopo::tools {

InputFile loadInputFile(const std::string& path, std::size_t limit) {
  InputFile file{printable(path), std::filesystem::path(path).stem().string(), ""};
  struct stat info {};
  if (stat(path.c_str(), &info) != 0) throw ImportError(file.label, std::strerror(errno));
  if (S_ISDIR(info.st_mode)) throw ImportError(file.label, "is a folder");
  std::ifstream stream(path, std::ios::binary);
  if (!stream) throw ImportError(file.label, std::strerror(errno));
  std::vector<char> block(1 << 16);
  while (stream.read(block.data(), static_cast<std::streamsize>(block.size())) ||
         stream.gcount() > 0) {
    file.text.append(block.data(), static_cast<std::size_t>(stream.gcount()));
    if (file.text.size() > limit) {
      throw ImportError(file.label, "is larger than " + std::to_string(limit) + " bytes");
    }
  }
  if (stream.bad()) throw ImportError(file.label, "could not be read to its end");
  return file;
}

void checkName(const std::string& where, const std::string& name, std::size_t width) {
  const std::string fault = nameFault(name, width);
  if (!fault.empty()) throw ImportError(where, fault);
}

std::string shortComplaint(const std::string& complaint) {
  constexpr std::size_t most = 200;
  return complaint.size() > most ? complaint.substr(0, most) + "..." : complaint;
}

}  // namespace zntopo::tools
