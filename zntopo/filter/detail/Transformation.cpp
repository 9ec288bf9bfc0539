#include "zntopo/filter/detail/Transformation.h"

#include <ostream>
#include <streambuf>
#include <xalanc/XSLT/XSLTInputSource.hpp>
#include <xalanc/XSLT/XSLTResultTarget.hpp>
#include <xalanc/XalanTransformer/XalanTransformer.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/sax/HandlerBase.hpp>
#include <xercesc/sax/SAXException.hpp>
#include <xercesc/util/XMLEntityResolver.hpp>
#include <xercesc/util/XMLResourceIdentifier.hpp>

#include "zntopo/filter/XMLUtil.h"
#include "zntopo/platform/tvxpl/TvXplStr.h"

namespace zntopo::detail {

namespace {

namespace xml = xercesc;
using TvXplStr::narrowed;

/// A text that does not grow beyond a limit.
class BoundedBuffer : public std::streambuf {
 public:
  const std::string& text() const { return text_; }
  bool isFull() const { return isFull_; }

 protected:
  int_type overflow(int_type c) override {
    if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
    const char one = traits_type::to_char_type(c);
    return xsputn(&one, 1) == 1 ? c : traits_type::eof();
  }
  std::streamsize xsputn(const char* bytes, std::streamsize count) override {
    isFull_ = isFull_ || static_cast<std::size_t>(count) > XMLUtil::kLargestResult - text_.size();
    if (isFull_) return 0;
    text_.append(bytes, static_cast<std::size_t>(count));
    return count;
  }

 private:
  std::string text_;
  bool isFull_ = false;
};

/// Serves a stylesheet the files of one folder.
class FolderResolver : public xml::XMLEntityResolver {
 public:
  explicit FolderResolver(const StylesheetFiles& files) : files_(files) {}

  /// The caller deletes what it gets.
  xml::InputSource* resolveEntity(xml::XMLResourceIdentifier* entity) override {
    const std::string name = narrowed(entity->getSystemId());
    const std::string path = pathOf(name);
    if (path.empty()) refuse("\"" + name + "\" is no file, and is not read.");
    XmlDocument document = documentOf(name, path);
    const std::string& bytes = document.bytes();
    auto* const copy = new XMLByte[bytes.size() + 1];
    bytes.copy(reinterpret_cast<char*>(copy), bytes.size());
    const std::u16string url = TvXplStr::widen(document.url());
    return new xml::MemBufInputSource(copy, bytes.size(), url.c_str(), true);
  }

  /// Why a file was refused; empty if none was.
  const std::string& refusal() const { return refusal_; }

 private:
  /// A name without a scheme is that of a file in the folder, to the letter, as it is where
  /// embedded files are validated. Empty for what is no file.
  std::string pathOf(const std::string& name) const {
    if (std::string path = pathOfUrl(name); !path.empty()) return path;
    if (name.empty() || name.find(':') < name.find('/')) return {};
    return name.front() == '/' ? name : files_.folder + name;
  }
  /// However a document wrote the name of a file of hosts, the file is validated.
  XmlDocument documentOf(const std::string& name, const std::string& path) {
    if (const auto known = files_.known.find(path); known != files_.known.end()) {
      return *known->second;
    }
    XmlDocument document = XmlDocument::ofFileIn(files_.folder, path);
    if (!document.refusal().empty()) refuse(document.refusal());
    if (document.isOfHosts()) {
      const std::string complaint = files_.complaintAbout(name, document);
      if (!complaint.empty()) refuse(complaint);
    }
    return document;
  }
  [[noreturn]] void refuse(const std::string& why) {
    refusal_ = why;
    throw xml::SAXException(TvXplStr::widen(why).c_str());
  }

  const StylesheetFiles& files_;
  std::string refusal_;
};

/// Ends a reading at its first error; the library's own handler writes to standard error.
class EndAtError : public xml::HandlerBase {
 public:
  void error(const xml::SAXParseException& exception) override { throw exception; }
};

}  // namespace

int applyStylesheet(const xalanc::XSLTInputSource& xml, const xalanc::XSLTInputSource& stylesheet,
                    const StylesheetFiles& files, std::string& text, std::string& error) {
  xalanc::XalanTransformer transformer;
  FolderResolver resolver(files);
  EndAtError errors;
  transformer.setXMLEntityResolver(&resolver);
  transformer.setErrorHandler(&errors);
  // Otherwise what a stylesheet says goes to standard error.
  transformer.setErrorStream(nullptr);
  transformer.setWarningStream(nullptr);
  BoundedBuffer buffer;
  std::ostream stream(&buffer);
  xalanc::XSLTResultTarget target(stream);
  const int code = transformer.transform(xml, stylesheet, target);
  if (!resolver.refusal().empty()) {
    // For document() the library takes it for an empty document.
    error = resolver.refusal();
    return code == 0 ? -1 : code;
  }
  if (code == 0) {
    text = buffer.text();
  } else if (buffer.isFull()) {
    error =
        "The transformation gives more than " + std::to_string(XMLUtil::kLargestResult) + " bytes.";
  } else {
    error = transformer.getLastError();
  }
  return code;
}

}  // namespace zntopo::detail
