#pragma once

#include <string>
#include <vector>
#include <xercesc/parsers/SAXParser.hpp>
#include <xercesc/util/SecurityManager.hpp>

#include "zntopo/filter/XMLParseHandler.h"

namespace zntopo::detail {

class XmlDocument;

/// A SAX parser that stops at what a hostile document would do, and resolves nothing by itself.
/// What it stops at becomes a fatal error of the handler.
class LimitedParser : public xercesc::SAXParser {
 public:
  /// Errors after which the rest of a document is not told, and the size of their text.
  static constexpr unsigned kMostErrors = 1000;
  static constexpr std::size_t kLargestErrorText = 1'000'000;
  /// Namespace declarations in force at one place: the library searches them one by one for every
  /// name.
  static constexpr std::size_t kMostNamespaces = 1000;

  /// Listens to all with the handler, which outlives the parser.
  explicit LimitedParser(XMLParseHandler& handler);

  /// Reads a document, whose name stands for it in diagnostics.
  /// @return false if there were errors
  bool read(const XmlDocument& document);
  /// The namespace of the root element.
  const std::u16string& rootNamespace() const { return rootNamespace_; }
  /// The name of the root element, without its prefix.
  const std::u16string& rootName() const { return rootName_; }
  /// True if the root makes a stylesheet of the document.
  bool isStylesheet() const { return isStylesheet_; }

  void doctypeDecl(const xercesc::DTDElementDecl& element, const XMLCh* publicId,
                   const XMLCh* systemId, bool hasIntSubset, bool hasExtSubset) override;
  void startElement(const xercesc::XMLElementDecl& element, unsigned int uri, const XMLCh* prefix,
                    const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes, XMLSize_t count,
                    bool isEmpty, bool isRoot) override;
  void endElement(const xercesc::XMLElementDecl& element, unsigned int uri, bool isRoot,
                  const XMLCh* prefix) override;
  void error(unsigned int code, const XMLCh* domain, xercesc::XMLErrorReporter::ErrTypes type,
             const XMLCh* text, const XMLCh* systemId, const XMLCh* publicId, XMLFileLoc line,
             XMLFileLoc column) override;

 private:
  struct Stopped {};

  void openNamespaces(const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes, XMLSize_t count);
  /// The end of an element.
  void close();
  [[noreturn]] void stop(const std::string& why);

  XMLParseHandler& handler_;
  xercesc::SecurityManager security_;
  std::size_t errorTextSize_ = 0;
  unsigned errors_ = 0;
  int depth_ = 0;
  /// How many namespaces each open element declares, and all together.
  std::vector<std::size_t> declared_;
  std::size_t namespaces_ = 0;
  std::u16string rootNamespace_;
  std::u16string rootName_;
  bool isStylesheet_ = false;
};

}  // namespace zntopo::detail
