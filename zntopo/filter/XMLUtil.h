#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <xalanc/Include/PlatformDefinitions.hpp>
#include <xercesc/util/XercesDefs.hpp>

#include "zntopo/platform/Export.h"

XERCES_CPP_NAMESPACE_BEGIN
class InputSource;
XERCES_CPP_NAMESPACE_END

namespace XALAN_CPP_NAMESPACE {
class XSLTInputSource;
}

namespace zntopo {

class XMLParseHandler;
class ZNMutex;

namespace detail {
struct SchemaLocation;
class XmlDocument;
}  // namespace detail

/// The XML services of the filters: starts and stops the XML libraries, knows where the filter
/// configuration lies, validates documents and applies stylesheets.
///
/// The first instance starts the libraries and the last one stops them, which costs far more than
/// the work on a document: a program that parses filters often keeps an instance alive.
///
/// Several threads may make instances and use one each at the same time. No exception leaves it.
///
/// What it reads is taken for hostile, but for what stylesheets and schemas do: how long and how
/// deep a stylesheet works is not bounded, so the filter configuration directory has to be trusted.
/// A document, a schema or a stylesheet is a regular file of
/// at most kLargestDocument bytes, is read once (an embedded file by a validation, for the
/// transformation that follows), and is refused if it declares a document type or
/// nests deeper than kDeepest elements. Nothing is read for the sake of a document but
/// what lies in the filter configuration directory, links followed, whatever the document or the
/// stylesheet names. No text of the libraries goes to standard error.
///
/// The header needs those of Xerces-C and Xalan-C, and so is no part of ZNTopo.h.
class ZNTOPO_EXPORT XMLUtil {
 public:
  /// Bytes of a document, a schema, a stylesheet.
  static constexpr std::size_t kLargestDocument = 10'000'000;
  /// Bytes that a transformation may give.
  static constexpr std::size_t kLargestResult = 50'000'000;
  /// Levels of elements.
  static constexpr int kDeepest = 100;

  /// @param bInit whether the libraries are there; if not, validate() and transform() fail.
  /// @param error why not; otherwise left alone.
  XMLUtil(bool& bInit, std::string& error);
  ~XMLUtil();
  XMLUtil(const XMLUtil&) = delete;
  XMLUtil& operator=(const XMLUtil&) = delete;

  /// The namespace of filter documents.
  const std::string& getTopologyXMLNamespace() const { return _kSCHEMA_NAMESPACE; }
  /// The filter configuration directory with a slash at its end, and "%20" for each blank.
  const std::string& getTopologyXMLConfigURI() const { return _kXMLCONFIG_URI; }
  /// The same as a plain path.
  const std::string& getTopologyXMLConfigPath() const { return _kXMLCONFIG_PATH; }
  /// How many instances have the libraries started; -1 after a start that failed and whose
  /// instance is gone: then no instance starts them until the count comes back to 0.
  static int getRefCount();

  /// Applies a stylesheet. A file is named, a text is the document itself.
  /// @return 0 if the stylesheet was applied. If it gave nothing, result is empty and error
  /// says so.
  int transform(const char* xmlFilename, const char* xsltFilename, std::string& result,
                std::string& error);
  int transform(const std::string& xml, const std::string& xslt, std::string& result,
                std::string& error);
  int transform(const std::string& xml, const char* xsltFilename, std::string& result,
                std::string& error);
  int transform(const char* xmlFilename, const std::string& xslt, std::string& result,
                std::string& error);
  /// Takes both sources as they are, untested.
  int transform(xalanc::XSLTInputSource& xmlIn, xalanc::XSLTInputSource& xsltIn,
                std::string& result, std::string& error) const;

  /// True for a document that is valid: its root is of the namespace of the schema, and the schema
  /// is there.
  /// @param schemaLoc a namespace, a blank and the URI of the schema; without it no grammar is
  /// known, and so no document valid.
  /// @param validateEmbedded also validates the files that its "HostIDFile" elements name, which
  /// have to lie in the filter configuration directory.
  bool validate(const char* xmlFilename, const char* schemaLoc, std::string& error,
                bool validateEmbedded);
  bool validate(const std::string& srcXml, const char* schemaLoc, std::string& error,
                bool validateEmbedded);
  bool validate(const xercesc::InputSource& document, const char* schemaLoc, std::string& error,
                bool validateEmbedded);

 protected:
  /// Each blank becomes "%20", and nothing else is changed.
  static std::string escape(const char* uri);

 private:
  friend class TopoFiltHandler;

  // A document that was read already.
  bool validate(detail::XmlDocument& document, const char* schemaLoc, std::string& error,
                bool validateEmbedded) const;
  int transform(detail::XmlDocument& document, detail::XmlDocument& stylesheet, std::string& result,
                std::string& error) const;

  static ZNMutex& s_lock();
  static detail::XmlDocument documentOf(const char* fileName);
  static detail::XmlDocument documentOf(const std::string& text);
  std::string schemaPath(const std::string& uri) const;
  template <typename Work>
  bool validating(std::string& error, const Work& work) const;
  bool validateOne(detail::XmlDocument& document, const detail::SchemaLocation& location,
                   XMLParseHandler& handler, std::string& error) const;
  bool validateFilesOf(const XMLParseHandler& handler, std::string& error) const;
  /// What is wrong with a file of hosts; empty if it is valid.
  std::string embeddedComplaint(const std::string& name, detail::XmlDocument& file) const;
  template <typename Work>
  int transforming(std::string& error, const Work& work) const;
  template <typename Xml, typename Xslt>
  int transformEither(const Xml& xml, const Xslt& xslt, std::string& result,
                      std::string& error) const;

  const std::string _kSCHEMA_NAMESPACE;
  const std::string _kXMLCONFIG_URI;
  const std::string _kXMLCONFIG_PATH;
  const std::string _kEMBEDDED_SCHEMA_FILENAME;
  const std::string _kEMBEDDED_SCHEMA_LOCATION;
  bool isStarted_ = false;
  /// The embedded files that were validated last, by their paths: a transformation takes the same
  /// bytes.
  mutable std::map<std::string, std::shared_ptr<detail::XmlDocument>> embedded_;
};

}  // namespace zntopo
