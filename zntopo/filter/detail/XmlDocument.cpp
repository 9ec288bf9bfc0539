#include "zntopo/filter/detail/XmlDocument.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <xercesc/sax/SAXException.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/XMLException.hpp>

#include "zntopo/filter/FilterNamespace.h"
#include "zntopo/filter/XMLParseHandler.h"
#include "zntopo/filter/XMLUtil.h"
#include "zntopo/filter/detail/Diagnostic.h"
#include "zntopo/filter/detail/LimitedParser.h"
#include "zntopo/platform/tvxpl/TvXplStr.h"

namespace zntopo::detail {

namespace {

namespace fs = std::filesystem;

std::string tooLarge() {
  return "It has more than " + std::to_string(XMLUtil::kLargestDocument) + " bytes.";
}

std::string unreadable(int error) {
  return std::string("The file can't be read: ") + std::strerror(error) + ".";
}

std::string absolutePath(const std::string& path) {
  std::error_code failed;
  const fs::path absolute = fs::absolute(path, failed);
  return failed ? path : absolute.string();
}

/// True if a file lies in a folder or below it, links followed; for a file that is not there, too,
/// if its place would.
bool liesIn(const std::string& folder, const std::string& path) {
  std::error_code failed;
  const fs::path realFolder = fs::canonical(folder, failed);
  if (failed) return false;
  const fs::path realPath = fs::weakly_canonical(path, failed);
  if (failed) return false;
  const fs::path way = realPath.lexically_relative(realFolder);
  return !way.empty() && *way.begin() != ".." && *way.begin() != ".";
}

/// Where the path of a file's URL begins, with or without an empty authority; npos for others.
std::size_t pathBegin(const std::string& url) {
  for (const std::string_view start : {"file:///", "file://localhost/", "file:/"}) {
    if (url.rfind(start, 0) == 0) return start.size() - 1;
  }
  return std::string::npos;
}

bool staysInUrl(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
         (c != 0 && std::strchr("/-._~", c));
}

int digitOf(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

/// Closes a file.
struct Descriptor {
  ~Descriptor() {
    if (number >= 0) close(number);
  }

  int number;
};

}  // namespace

XmlDocument XmlDocument::ofFile(const std::string& path) {
  XmlDocument document(absolutePath(path), absolutePath(path));
  document.readFile();
  return document;
}

XmlDocument XmlDocument::ofFileIn(const std::string& folder, const std::string& path) {
  if (liesIn(folder, path)) return ofFile(path);
  XmlDocument document(path, path);
  document.refuse("It does not lie in " + folder + ".");
  return document;
}

XmlDocument XmlDocument::ofText(const std::string& text, const std::string& name,
                                const std::string& place) {
  XmlDocument document(name, place);
  if (text.size() > XMLUtil::kLargestDocument) {
    document.refuse(tooLarge());
  } else {
    document.bytes_ = text;
  }
  return document;
}

const std::string& XmlDocument::refusal() {
  if (!isTested_ && refusal_.empty()) test();
  isTested_ = true;
  return refusal_;
}

const std::string& XmlDocument::refusalAsStylesheet() {
  if (refusal().empty() && !isStylesheet_) refuse("It is no stylesheet.");
  return refusal_;
}

bool XmlDocument::isOfHosts() { return refusal().empty() && isOfHosts_; }

std::string XmlDocument::url() const {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  std::string url = "file://";
  for (const char c : place_) {
    if (staysInUrl(c)) {
      url += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      url += {'%', kDigits[byte >> 4], kDigits[byte & 0xF]};
    }
  }
  return url;
}

void XmlDocument::readFile() {
  // The system would take the name to end there.
  if (name_.find('\0') != std::string::npos) return refuse(unreadable(ENOENT));
  // A pipe without a writer does not hold us up, and is then refused as no regular file.
  const Descriptor file{open(name_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY)};
  struct stat what {};
  if (file.number < 0 || fstat(file.number, &what) != 0) {
    return refuse(unreadable(errno));
  }
  if (!S_ISREG(what.st_mode)) return refuse("It is not a regular file.");
  char block[65536];
  while (true) {
    const ssize_t count = ::read(file.number, block, sizeof block);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return refuse(unreadable(errno));
    if (count == 0) return;
    bytes_.append(block, static_cast<std::size_t>(count));
    // Asked of what was read, since a file can grow.
    if (bytes_.size() > XMLUtil::kLargestDocument) return refuse(tooLarge());
  }
}

void XmlDocument::test() {
  XMLParseHandler handler;
  try {
    LimitedParser parser(handler);
    const bool isRead = parser.read(*this);
    isStylesheet_ = parser.isStylesheet();
    isOfHosts_ = parser.rootName() == u"hosts" &&
                 parser.rootNamespace() == TvXplStr::widen(kTopologyFilterNamespace);
    if (isRead) return;
    handler.retreiveErrorString(refusal_);
  } catch (const xercesc::XMLException& error) {
    refuse(TvXplStr::narrow(error.getMessage()));
  } catch (const xercesc::SAXException& error) {
    refuse(TvXplStr::narrow(error.getMessage()));
  } catch (const xercesc::OutOfMemoryException&) {
    refuse("There is not enough memory to read it.");
  }
  bytes_.clear();
}

void XmlDocument::refuse(const std::string& why) {
  bytes_.clear();
  // Not by way of the XML library, which need not be started where a file is read.
  refusal_ = fatalError(name_, why);
}

std::string pathOfUrl(const std::string& url) {
  const std::size_t begin = pathBegin(url);
  if (begin >= url.size() || url[begin] != '/') return {};
  std::string path;
  for (std::size_t i = begin; i < url.size(); ++i) {
    if (url[i] == '%' && i + 2 < url.size() && digitOf(url[i + 1]) >= 0 &&
        digitOf(url[i + 2]) >= 0) {
      path += static_cast<char>(digitOf(url[i + 1]) * 16 + digitOf(url[i + 2]));
      i += 2;
    } else {
      path += url[i];
    }
  }
  // A name with a NUL is the name of no file.
  return path.find('\0') == std::string::npos ? path : std::string();
}

std::string blanksOf(std::string text) {
  for (std::size_t at = 0; (at = text.find("%20", at)) != std::string::npos; ++at) {
    text.replace(at, 3, " ");
  }
  return text;
}

}  // namespace zntopo::detail
