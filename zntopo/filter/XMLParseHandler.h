#pragma once

#include <set>
#include <sstream>
#include <string>
#include <xercesc/sax/HandlerBase.hpp>

namespace zntopo {

/// Gathers what a validation has to say, and the names of the files that a document embeds.
/// It belongs to one thread at a time. Texts are UTF-8.
class XMLParseHandler : public xercesc::HandlerBase {
 public:
  /// The element whose text names a file.
  static constexpr const char* _kTAGEmbeddedURI = "HostIDFile";

  /// Errors and fatal errors.
  unsigned int getErrorCount() const { return _errorCount; }
  unsigned int getWarningCount() const { return _warningCount; }
  unsigned int getElementCount() const { return _elementCount; }
  unsigned int getAttributeCount() const { return _attributeCount; }
  unsigned int getCharacterCount() const { return _characterCount; }
  bool hasEmbeddedURIs() const { return !_embeddedURIs.empty(); }
  /// As the document has them. Of a text that the parser hands over in pieces it is the first.
  const std::set<std::string>& getEmbeddedURIs() const { return _embeddedURIs; }
  /// All counts to 0.
  void resetStatistics();
  /// All diagnostics so far: two lines each, with file, line, column and message.
  void retreiveErrorString(std::string& text) const;

  void startElement(const XMLCh* name, xercesc::AttributeList& attributes) override;
  void characters(const XMLCh* chars, XMLSize_t length) override;
  void warning(const xercesc::SAXParseException& exception) override;
  void error(const xercesc::SAXParseException& exception) override;
  void fatalError(const xercesc::SAXParseException& exception) override;

 private:
  void append(const char* heading, const xercesc::SAXParseException& exception);

  unsigned int _attributeCount = 0;
  unsigned int _characterCount = 0;
  unsigned int _elementCount = 0;
  unsigned int _errorCount = 0;
  unsigned int _warningCount = 0;
  bool _bGetURI = false;
  std::set<std::string> _embeddedURIs;
  std::ostringstream _err;
};

}  // namespace zntopo
