#include "zntopo/filter/XMLUtil.h"

#include <memory>
#include <sstream>
#include <string_view>
#include <xalanc/XSLT/XSLTInputSource.hpp>
#include <xalanc/XalanTransformer/XalanTransformer.hpp>
#include <xercesc/sax/InputSource.hpp>
#include <xercesc/sax/SAXException.hpp>
#include <xercesc/util/BinInputStream.hpp>
#include <xercesc/util/XMLException.hpp>

#include "zntopo/core/MCLog.h"
#include "zntopo/core/ZNMutex.h"
#include "zntopo/filter/FilterNamespace.h"
#include "zntopo/filter/XMLParseHandler.h"
#include "zntopo/filter/detail/Diagnostic.h"
#include "zntopo/filter/detail/LimitedParser.h"
#include "zntopo/filter/detail/SchemaResolver.h"
#include "zntopo/filter/detail/Transformation.h"
#include "zntopo/filter/detail/XmlDocument.h"
#include "zntopo/platform/tv/BuildPath.h"
#include "zntopo/platform/tvxpl/TvXplStr.h"
#include "zntopo/platform/tvxpl/XmlLibrary.h"

namespace zntopo {

namespace {

using detail::XmlDocument;
using TvXplStr::narrowed;

constexpr const char* kStartFailure = "Xerces/Xalan library initialization failed.";
constexpr const char* kInvalid = "XML validation failed. \n";
constexpr const char* kBufferName = "filter";
constexpr int kFailed = -1;

std::string configurationDirectory() {
  return _TVBuildPath("%TV_ETC_PATH%\\conf", "qrmrz\\topology\\filter\\", 0);
}

std::string textOf(const char* text) { return text ? text : ""; }

/// A document as the transformation takes it.
struct TransformSource {
  explicit TransformSource(const XmlDocument& document) : stream(document.bytes()), source(stream) {
    source.setSystemId(TvXplStr::widen(document.url()).c_str());
  }

  std::istringstream stream;
  xalanc::XSLTInputSource source;
};

/// How often the XML libraries are in use. Guarded by the lock of XMLUtil.
struct Use {
  int count = 0;    // what callers are told: off by one after a start that failed
  int holders = 0;  // instances that really have the libraries, which stop with the last of them
};

Use& use() {
  static Use theUse;
  return theUse;
}

void initResources() {
  TvXplXml::startXmlLibrary();
  try {
    xalanc::XalanTransformer::initialize();
  } catch (...) {
    TvXplXml::stopXmlLibrary();
    throw;
  }
}

void releaseResources() {
  try {
    xalanc::XalanTransformer::terminate();
    TvXplXml::stopXmlLibrary();
  } catch (...) {
    // The libraries are gone as far as they go.
  }
}

/// All bytes of a source that a caller made, and one more than fit if there are more.
std::string bytesOf(const xercesc::InputSource& source) {
  std::string bytes;
  const std::unique_ptr<xercesc::BinInputStream> stream(source.makeStream());
  XMLByte block[65536];
  while (stream && bytes.size() <= XMLUtil::kLargestDocument) {
    const XMLSize_t count = stream->readBytes(block, sizeof block);
    if (count == 0) break;
    bytes.append(reinterpret_cast<const char*>(block), count);
  }
  return bytes;
}

void useSchema(detail::LimitedParser& parser, const detail::SchemaLocation& location,
               detail::SchemaResolver& resolver) {
  parser.setValidationScheme(xercesc::SAXParser::Val_Always);
  parser.setDoSchema(true);
  parser.setValidationSchemaFullChecking(true);
  parser.setXMLEntityResolver(&resolver);
  if (location.uri.empty()) return;
  const std::string whole = location.space + " " + location.uri;
  parser.setExternalSchemaLocation(TvXplStr::widen(whole).c_str());
}

/// The parser counts no error for a grammar that is not there, nor for a root of another namespace.
std::string complaintAboutRoot(detail::LimitedParser& parser,
                               const detail::SchemaLocation& location, const std::string& document,
                               const std::string& schema) {
  const std::u16string space = TvXplStr::widen(location.space);
  if (location.uri.empty() || !parser.getGrammar(space.c_str())) {
    return detail::fatalError(schema,
                              "There is no schema for the namespace \"" + location.space + "\".");
  }
  if (parser.rootNamespace() != space) {
    return detail::fatalError(
        document, "The root element is not of the namespace \"" + location.space + "\".");
  }
  return {};
}

}  // namespace

ZNMutex& XMLUtil::s_lock() {
  // Never destroyed: an instance may be the last thing of a process.
  static auto* const lock = new ZNMutex;
  return *lock;
}

XMLUtil::XMLUtil(bool& bInit, std::string& error)
    : _kSCHEMA_NAMESPACE(kTopologyFilterNamespace),
      _kXMLCONFIG_URI(escape(configurationDirectory().c_str())),
      _kXMLCONFIG_PATH(configurationDirectory()),
      _kEMBEDDED_SCHEMA_FILENAME("HostIDFile.xsd"),
      _kEMBEDDED_SCHEMA_LOCATION(_kSCHEMA_NAMESPACE + " " + _kXMLCONFIG_URI +
                                 _kEMBEDDED_SCHEMA_FILENAME) {
  MCLog::log(MC_INFO, "Config path is [%s]\n", _kXMLCONFIG_PATH.c_str());
  MCLog::log(MC_INFO, "Config URI is [%s]\n", _kXMLCONFIG_URI.c_str());
  const MutexLockInternal lock(s_lock());
  try {
    if (use().count == 0 && use().holders == 0) initResources();
  } catch (...) {
    bInit = false;
    error = kStartFailure;
    return;
  }
  bInit = true;
  // After a failed start the count is not 0 without anybody who has the libraries: then this
  // instance has none either, and says so where it would need them.
  isStarted_ = use().count == 0 || use().holders > 0;
  ++use().count;
  if (isStarted_) ++use().holders;
}

XMLUtil::~XMLUtil() {
  const MutexLockInternal lock(s_lock());
  // Goes down for an instance that never counted, too.
  --use().count;
  if (isStarted_ && --use().holders == 0) releaseResources();
}

int XMLUtil::getRefCount() {
  const MutexLockInternal lock(s_lock());
  return use().count;
}

std::string XMLUtil::escape(const char* uri) {
  std::string escaped;
  for (const char c : std::string_view(uri)) {
    if (c == ' ') {
      escaped += "%20";
    } else {
      escaped += c;
    }
  }
  return escaped;
}

detail::XmlDocument XMLUtil::documentOf(const char* fileName) {
  return XmlDocument::ofFile(textOf(fileName));
}

// Its place is in the configuration directory, where names in it are looked for.
detail::XmlDocument XMLUtil::documentOf(const std::string& text) {
  return XmlDocument::ofText(text, kBufferName, configurationDirectory() + kBufferName);
}

template <typename Work>
bool XMLUtil::validating(std::string& error, const Work& work) const {
  if (!isStarted_) {
    error = kStartFailure;
    return false;
  }
  try {
    return work();
  } catch (const xercesc::XMLException& exception) {
    error = narrowed(exception.getMessage());
  } catch (const xercesc::SAXException& exception) {
    error = "SAX exception when parsing xml: " + narrowed(exception.getMessage()) + "\n";
  } catch (...) {
    error = "Unexpected exception when parsing xml.\n";
  }
  return false;
}

bool XMLUtil::validate(const char* xmlFilename, const char* schemaLoc, std::string& error,
                       bool validateEmbedded) {
  return validating(error, [&] {
    XmlDocument document = documentOf(xmlFilename);
    return validate(document, schemaLoc, error, validateEmbedded);
  });
}

bool XMLUtil::validate(const std::string& srcXml, const char* schemaLoc, std::string& error,
                       bool validateEmbedded) {
  return validating(error, [&] {
    XmlDocument document = documentOf(srcXml);
    return validate(document, schemaLoc, error, validateEmbedded);
  });
}

bool XMLUtil::validate(const xercesc::InputSource& document, const char* schemaLoc,
                       std::string& error, bool validateEmbedded) {
  return validating(error, [&] {
    const std::string name = narrowed(document.getSystemId());
    XmlDocument read = XmlDocument::ofText(bytesOf(document), name, name);
    if (document.getEncoding()) read.setEncoding(document.getEncoding());
    return validate(read, schemaLoc, error, validateEmbedded);
  });
}

bool XMLUtil::validate(XmlDocument& document, const char* schemaLoc, std::string& error,
                       bool validateEmbedded) const {
  return validating(error, [&] {
    XMLParseHandler handler;
    embedded_.clear();
    return validateOne(document, detail::SchemaLocation::of(textOf(schemaLoc)), handler, error) &&
           (!validateEmbedded || validateFilesOf(handler, error));
  });
}

bool XMLUtil::validateOne(XmlDocument& document, const detail::SchemaLocation& location,
                          XMLParseHandler& handler, std::string& error) const {
  XmlDocument schema = documentOf(schemaPath(location.uri).c_str());
  for (XmlDocument* const input : {&document, &schema}) {
    // Without a location there is no schema to miss.
    if (input->refusal().empty() || (input == &schema && location.uri.empty())) continue;
    error = kInvalid + input->refusal();
    return false;
  }
  detail::SchemaResolver resolver(location, schema);
  detail::LimitedParser parser(handler);
  useSchema(parser, location, resolver);
  std::string complaints;
  const bool isRead = parser.read(document);
  if (isRead) {
    complaints = complaintAboutRoot(parser, location, document.name(), schema.name());
  } else {
    handler.retreiveErrorString(complaints);
  }
  if (isRead && complaints.empty()) return true;
  error = kInvalid + complaints;
  return false;
}

bool XMLUtil::validateFilesOf(const XMLParseHandler& handler, std::string& error) const {
  for (const std::string& uri : handler.getEmbeddedURIs()) {
    const std::string path = _kXMLCONFIG_PATH + uri;
    const auto file = std::make_shared<XmlDocument>(XmlDocument::ofFileIn(_kXMLCONFIG_PATH, path));
    if (std::string complaint = embeddedComplaint(uri, *file); !complaint.empty()) {
      error = std::move(complaint);
      return false;
    }
    embedded_.emplace(path, file);
  }
  return true;
}

std::string XMLUtil::embeddedComplaint(const std::string& name, XmlDocument& file) const {
  XMLParseHandler handler;
  std::string parseErrors;
  const auto location = detail::SchemaLocation::of(_kEMBEDDED_SCHEMA_LOCATION);
  if (validateOne(file, location, handler, parseErrors)) return {};
  return "XML validate failed for document " + name + "\n" + parseErrors;
}

std::string XMLUtil::schemaPath(const std::string& uri) const {
  // What the directory itself has for a "%20" is no blank.
  if (uri.rfind(_kXMLCONFIG_URI, 0) == 0) {
    return _kXMLCONFIG_PATH + detail::blanksOf(uri.substr(_kXMLCONFIG_URI.size()));
  }
  return detail::blanksOf(uri);
}

template <typename Work>
int XMLUtil::transforming(std::string& error, const Work& work) const {
  if (!isStarted_) {
    error = kStartFailure;
    return kFailed;
  }
  try {
    return work();
  } catch (...) {
    error = "Unknown exception when attempting transformation.";
  }
  return kFailed;
}

template <typename Xml, typename Xslt>
int XMLUtil::transformEither(const Xml& xml, const Xslt& xslt, std::string& result,
                             std::string& error) const {
  return transforming(error, [&] {
    XmlDocument document = documentOf(xml);
    XmlDocument stylesheet = documentOf(xslt);
    return transform(document, stylesheet, result, error);
  });
}

int XMLUtil::transform(const char* xmlFilename, const char* xsltFilename, std::string& result,
                       std::string& error) {
  return transformEither(xmlFilename, xsltFilename, result, error);
}

int XMLUtil::transform(const std::string& xml, const std::string& xslt, std::string& result,
                       std::string& error) {
  return transformEither(xml, xslt, result, error);
}

int XMLUtil::transform(const std::string& xml, const char* xsltFilename, std::string& result,
                       std::string& error) {
  return transformEither(xml, xsltFilename, result, error);
}

int XMLUtil::transform(const char* xmlFilename, const std::string& xslt, std::string& result,
                       std::string& error) {
  return transformEither(xmlFilename, xslt, result, error);
}

int XMLUtil::transform(XmlDocument& document, XmlDocument& stylesheet, std::string& result,
                       std::string& error) const {
  return transforming(error, [&] {
    for (const std::string* const refusal :
         {&document.refusal(), &stylesheet.refusalAsStylesheet()}) {
      if (refusal->empty()) continue;
      error = *refusal;
      return kFailed;
    }
    TransformSource xml(document);
    TransformSource xslt(stylesheet);
    return transform(xml.source, xslt.source, result, error);
  });
}

int XMLUtil::transform(xalanc::XSLTInputSource& xmlIn, xalanc::XSLTInputSource& xsltIn,
                       std::string& result, std::string& error) const {
  return transforming(error, [&] {
    std::string text;
    const auto complaintAbout = [this](const std::string& name, XmlDocument& file) {
      return embeddedComplaint(name, file);
    };
    const int res = detail::applyStylesheet(
        xmlIn, xsltIn, {_kXMLCONFIG_PATH, embedded_, complaintAbout}, text, error);
    if (res != 0) return res;
    result = std::move(text);
    if (result.empty()) {
      error = "There was no data resulting from the transformation.";
    } else {
      MCLog::log(MC_VERBOSE, "Transformed XML [\n%s\n]\n", result.c_str());
    }
    return res;
  });
}

}  // namespace zntopo
