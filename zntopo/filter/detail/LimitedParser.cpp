#include "zntopo/filter/detail/LimitedParser.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/internal/XMLScanner.hpp>
#include <xercesc/sax/Locator.hpp>
#include <xercesc/sax/SAXParseException.hpp>

#include "zntopo/filter/XMLUtil.h"
#include "zntopo/filter/detail/XmlDocument.h"
#include "zntopo/platform/tvxpl/TvXplStr.h"

namespace zntopo::detail {

namespace xml = xercesc;

namespace {

bool isOfStylesheets(const xml::XMLScanner& scanner, unsigned int uri) {
  return std::u16string_view(scanner.getURIText(uri)) == u"http://www.w3.org/1999/XSL/Transform";
}

bool declaresNamespace(const xml::XMLAttr& attribute) {
  const std::u16string_view prefix = attribute.getPrefix();
  return prefix == u"xmlns" ||
         (prefix.empty() && std::u16string_view(attribute.getName()) == u"xmlns");
}

}  // namespace

LimitedParser::LimitedParser(XMLParseHandler& handler) : handler_(handler) {
  setDoNamespaces(true);
  setLoadExternalDTD(false);
  setDisableDefaultEntityResolution(true);
  setSecurityManager(&security_);
  setDocumentHandler(&handler);
  setErrorHandler(&handler);
  // Without one the scanner does not tell of document types.
  setDTDHandler(&handler);
}

bool LimitedParser::read(const XmlDocument& document) {
  const std::string& bytes = document.bytes();
  xml::MemBufInputSource source(reinterpret_cast<const XMLByte*>(bytes.data()), bytes.size(),
                                TvXplStr::widen(document.name()).c_str());
  if (!document.encoding().empty()) source.setEncoding(document.encoding().c_str());
  errorTextSize_ = 0;
  errors_ = 0;
  depth_ = 0;
  declared_.clear();
  namespaces_ = 0;
  rootNamespace_.clear();
  rootName_.clear();
  isStylesheet_ = false;
  try {
    parse(source);
  } catch (const Stopped&) {
    return false;
  }
  return getErrorCount() == 0;
}

void LimitedParser::doctypeDecl(const xml::DTDElementDecl&, const XMLCh*, const XMLCh*, bool,
                                bool) {
  stop("A document type declaration is refused: remove \"<!DOCTYPE\".");
}

void LimitedParser::startElement(const xml::XMLElementDecl& element, unsigned int uri,
                                 const XMLCh* prefix,
                                 const xml::RefVectorOf<xml::XMLAttr>& attributes, XMLSize_t count,
                                 bool isEmpty, bool isRoot) {
  if (isRoot) {
    rootNamespace_ = getScanner().getURIText(uri);
    rootName_ = element.getBaseName();
    isStylesheet_ = isOfStylesheets(getScanner(), uri);
    for (XMLSize_t i = 0; i < count && !isStylesheet_; ++i) {
      isStylesheet_ = isOfStylesheets(getScanner(), attributes.elementAt(i)->getURIId());
    }
  }
  if (++depth_ > XMLUtil::kDeepest) {
    stop("Elements are nested deeper than " + std::to_string(XMLUtil::kDeepest) + " levels.");
  }
  openNamespaces(attributes, count);
  SAXParser::startElement(element, uri, prefix, attributes, count, isEmpty, isRoot);
  // The scanner does not tell of the end of an empty element.
  if (isEmpty) close();
}

void LimitedParser::endElement(const xml::XMLElementDecl& element, unsigned int uri, bool isRoot,
                               const XMLCh* prefix) {
  close();
  SAXParser::endElement(element, uri, isRoot, prefix);
}

void LimitedParser::openNamespaces(const xml::RefVectorOf<xml::XMLAttr>& attributes,
                                   XMLSize_t count) {
  std::size_t declared = 0;
  for (XMLSize_t i = 0; i < count; ++i) declared += declaresNamespace(*attributes.elementAt(i));
  declared_.push_back(declared);
  namespaces_ += declared;
  if (namespaces_ > kMostNamespaces) {
    stop("More than " + std::to_string(kMostNamespaces) +
         " namespace declarations are in force at one place.");
  }
}

void LimitedParser::close() {
  --depth_;
  namespaces_ -= declared_.back();
  declared_.pop_back();
}

void LimitedParser::error(unsigned int code, const XMLCh* domain,
                          xml::XMLErrorReporter::ErrTypes type, const XMLCh* text,
                          const XMLCh* systemId, const XMLCh* publicId, XMLFileLoc line,
                          XMLFileLoc column) {
  SAXParser::error(code, domain, type, text, systemId, publicId, line, column);
  errorTextSize_ += std::u16string_view(text).size();
  if (type != xml::XMLErrorReporter::ErrType_Warning) ++errors_;
  if (errors_ >= kMostErrors || errorTextSize_ > kLargestErrorText) {
    stop("There are too many errors: what follows is not told.");
  }
}

void LimitedParser::stop(const std::string& why) {
  const xml::Locator* const place = getScanner().getLocator();
  const std::u16string text = TvXplStr::widen(why);
  handler_.fatalError(xml::SAXParseException(text.c_str(), *place));
  throw Stopped();
}

}  // namespace zntopo::detail
