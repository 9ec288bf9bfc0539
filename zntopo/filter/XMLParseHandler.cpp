#include "zntopo/filter/XMLParseHandler.h"

#include <xercesc/sax/AttributeList.hpp>
#include <xercesc/sax/SAXParseException.hpp>

#include "zntopo/filter/detail/Diagnostic.h"
#include "zntopo/platform/tvxpl/TvXplStr.h"

namespace zntopo {

namespace {

using TvXplStr::narrowed;

}  // namespace

void XMLParseHandler::resetStatistics() {
  _attributeCount = 0;
  _characterCount = 0;
  _elementCount = 0;
  _errorCount = 0;
  _warningCount = 0;
}

void XMLParseHandler::retreiveErrorString(std::string& text) const { text = _err.str(); }

void XMLParseHandler::startElement(const XMLCh* name, xercesc::AttributeList& attributes) {
  ++_elementCount;
  _attributeCount += static_cast<unsigned int>(attributes.getLength());
  if (name == TvXplStr::String_t(_kTAGEmbeddedURI)) _bGetURI = true;
}

void XMLParseHandler::characters(const XMLCh* chars, XMLSize_t length) {
  _characterCount += static_cast<unsigned int>(length);
  if (!_bGetURI) return;
  _embeddedURIs.insert(TvXplStr::narrow({chars, length}));
  _bGetURI = false;
}

void XMLParseHandler::warning(const xercesc::SAXParseException& exception) {
  ++_warningCount;
  append(detail::kWarningHeading, exception);
}

void XMLParseHandler::error(const xercesc::SAXParseException& exception) {
  ++_errorCount;
  append(detail::kErrorHeading, exception);
}

void XMLParseHandler::fatalError(const xercesc::SAXParseException& exception) {
  ++_errorCount;
  append(detail::kFatalErrorHeading, exception);
}

void XMLParseHandler::append(const char* heading, const xercesc::SAXParseException& exception) {
  const detail::Diagnostic diagnostic{
      .heading = heading,
      .file = narrowed(exception.getSystemId()),
      .line = exception.getLineNumber(),
      .column = exception.getColumnNumber(),
      .message = narrowed(exception.getMessage()),
  };
  _err << diagnostic.text();
}

}  // namespace zntopo
