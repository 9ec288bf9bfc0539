#pragma once

#include <memory>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>

/// @file
/// The life of the XML library Xerces-C in this process.

namespace TvXplXml {

/// Starts the library, or adds a user to those that it has; each successful start is followed by
/// one stopXmlLibrary(). May be called by several threads at once, as the library's own calls may
/// not. Throws TvXplMsg::Exception_t if the library can't be started,
/// and from then on, since what a failed start leaves is of no use.
///
/// The library's way to end the process when it can't work, with a text on standard error, is
/// replaced by an exception.
void startXmlLibrary();
/// Takes a user away; after the last one the library is stopped.
void stopXmlLibrary();

/// A user of the library.
class XmlLibraryUse {
 public:
  XmlLibraryUse() { startXmlLibrary(); }
  ~XmlLibraryUse() { stopXmlLibrary(); }
  XmlLibraryUse(const XmlLibraryUse&) = delete;
  XmlLibraryUse& operator=(const XmlLibraryUse&) = delete;
};

/// A reader of documents that tells a listener all it meets. It validates nothing, and reads
/// nothing by itself but its source. The library has to be started, and the listener outlives the
/// reader.
std::unique_ptr<xercesc::SAX2XMLReader> makeXmlReader(xercesc::DefaultHandler& listener);

}  // namespace TvXplXml
