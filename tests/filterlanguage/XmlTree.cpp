#include "tests/filterlanguage/XmlTree.h"

#include <memory>
#include <sstream>
#include <stdexcept>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/TransService.hpp>
#include <xercesc/util/XMLUni.hpp>

namespace zntopo::test {

namespace {

namespace xml = xercesc;

std::string utf8(const XMLCh* text) {
  const xml::TranscodeToStr narrow(text, "UTF-8");
  return {reinterpret_cast<const char*>(narrow.str()), narrow.length()};
}

/// Builds the tree, and throws at the first complaint.
class TreeBuilder : public xml::DefaultHandler {
 public:
  XmlTree root;

  void startElement(const XMLCh* /*uri*/, const XMLCh* localName, const XMLCh* /*qName*/,
                    const xml::Attributes& attributes) override {
    XmlTree element;
    element.name = utf8(localName);
    for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
      element.attributes[utf8(attributes.getLocalName(i))] = utf8(attributes.getValue(i));
    }
    open_.push_back(std::move(element));
  }
  void endElement(const XMLCh* /*uri*/, const XMLCh* /*localName*/,
                  const XMLCh* /*qName*/) override {
    XmlTree element = std::move(open_.back());
    open_.pop_back();
    (open_.empty() ? root : open_.back().children.emplace_back()) = std::move(element);
  }
  void characters(const XMLCh* text, XMLSize_t length) override {
    const std::u16string copy(reinterpret_cast<const char16_t*>(text), length);
    open_.back().text += utf8(copy.c_str());
  }
  void warning(const xml::SAXParseException& complaint) override { fail(complaint); }
  void error(const xml::SAXParseException& complaint) override { fail(complaint); }
  void fatalError(const xml::SAXParseException& complaint) override { fail(complaint); }

 private:
  [[noreturn]] static void fail(const xml::SAXParseException& complaint) {
    std::ostringstream text;
    text << "line " << complaint.getLineNumber() << ", column " << complaint.getColumnNumber()
         << ": " << utf8(complaint.getMessage());
    throw std::runtime_error(text.str());
  }

  std::vector<XmlTree> open_;
};

/// Keeps the library started.
struct XmlLibrary {
  XmlLibrary() { xml::XMLPlatformUtils::Initialize(); }
  ~XmlLibrary() { xml::XMLPlatformUtils::Terminate(); }
  XmlLibrary(const XmlLibrary&) = delete;
  XmlLibrary& operator=(const XmlLibrary&) = delete;
};

void validateAgainst(const std::string& schema, xml::SAX2XMLReader& reader) {
  reader.setFeature(xml::XMLUni::fgSAX2CoreValidation, true);
  reader.setFeature(xml::XMLUni::fgXercesSchema, true);
  if (!reader.loadGrammar(schema.c_str(), xml::Grammar::SchemaGrammarType, true)) {
    throw std::runtime_error("no schema: " + schema);
  }
  reader.setFeature(xml::XMLUni::fgXercesUseCachedGrammarInParse, true);
}

}  // namespace

std::string XmlTree::attribute(const std::string& key) const {
  const auto found = attributes.find(key);
  return found == attributes.end() ? std::string() : found->second;
}

const XmlTree& XmlTree::child(const std::string& childName) const {
  for (const XmlTree& each : children) {
    if (each.name == childName) return each;
  }
  throw std::out_of_range("no element " + childName + " in " + name);
}

XmlTree readXml(const std::string& document, const std::string& schema) {
  const XmlLibrary library;
  const std::unique_ptr<xml::SAX2XMLReader> reader(xml::XMLReaderFactory::createXMLReader());
  TreeBuilder builder;
  reader->setContentHandler(&builder);
  reader->setErrorHandler(&builder);
  reader->setFeature(xml::XMLUni::fgSAX2CoreValidation, false);
  reader->setFeature(xml::XMLUni::fgXercesSchema, false);
  if (!schema.empty()) validateAgainst(schema, *reader);
  const xml::MemBufInputSource source(reinterpret_cast<const XMLByte*>(document.data()),
                                      document.size(), "document");
  reader->parse(source);
  return std::move(builder.root);
}

}  // namespace zntopo::test
