#pragma once

#include <string>

namespace zntopo::detail {

/// The bytes of a document, a schema or a stylesheet: read once, and tested before anything is
/// done with them. It belongs to one thread at a time.
class XmlDocument {
 public:
  /// A regular file.
  static XmlDocument ofFile(const std::string& path);
  /// A regular file that lies in a folder, links followed.
  static XmlDocument ofFileIn(const std::string& folder, const std::string& path);
  /// @param name stands for it in diagnostics
  /// @param place a file that it is taken to be where names in it are relative
  static XmlDocument ofText(const std::string& text, const std::string& name,
                            const std::string& place);

  const std::string& bytes() const { return bytes_; }
  /// What diagnostics call it: of a file the absolute path.
  const std::string& name() const { return name_; }
  /// What its bytes are encoded in, if not what they say themselves; otherwise empty.
  const std::u16string& encoding() const { return encoding_; }
  void setEncoding(const std::u16string& encoding) { encoding_ = encoding; }
  /// Where it lies, as an escaped file:// URL.
  std::string url() const;
  /// Why nothing can be done with it, in the form of the diagnostics of a validation. Empty for
  /// well-formed XML of at most XMLUtil::kLargestDocument bytes without a document type declaration
  /// that is not nested deeper than XMLUtil::kDeepest. The first call tests it; the XML library has
  /// to be started.
  const std::string& refusal();
  /// The same for what has to be a stylesheet.
  const std::string& refusalAsStylesheet();
  /// True for a document that is not refused and whose root is that of a file of hosts.
  bool isOfHosts();

 private:
  XmlDocument(const std::string& name, const std::string& place) : name_(name), place_(place) {}

  void readFile();
  void test();
  void refuse(const std::string& why);

  std::string bytes_;
  std::string name_;
  std::string place_;
  std::u16string encoding_;
  std::string refusal_;
  bool isTested_ = false;
  bool isStylesheet_ = false;
  bool isOfHosts_ = false;
};

/// The path that the escaped URL of a file names; empty for any other URL.
std::string pathOfUrl(const std::string& url);

/// A text with each "%20" turned into a blank.
std::string blanksOf(std::string text);

}  // namespace zntopo::detail
