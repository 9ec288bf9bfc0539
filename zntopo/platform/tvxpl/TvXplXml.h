#pragma once

#include "zntopo/platform/tvxpl/TvXplIo.h"
#include "zntopo/platform/tvxpl/TvXplMsg.h"

/// @file
/// The platform's SAX reader. All texts that it hands out are UTF-16 with a NUL behind them, and
/// live as long as the call.

namespace TvXplXml {

namespace SAX {

/// What is read.
class InputSource_t {
 public:
  /// The stream belongs to the caller and outlives the source.
  explicit InputSource_t(TvXplIo::InputStream_t& stream) : stream_(&stream) {}
  TvXplIo::InputStream_t& GetStream() const { return *stream_; }

 private:
  TvXplIo::InputStream_t* stream_;
};

/// Where the reader is. Lines and columns begin with 1.
class Locator_i {
 public:
  virtual long GetLineNumber() const = 0;
  virtual long GetColumnNumber() const = 0;

 protected:
  ~Locator_i() = default;
};

/// The attributes of an element, from 0 on. What is not there is null, and -1 as an index.
class Attributes_i {
 public:
  virtual int GetLength() const = 0;
  virtual const char16_t* GetURI(int index) const = 0;
  virtual const char16_t* GetLocalName(int index) const = 0;
  virtual const char16_t* GetQName(int index) const = 0;
  virtual const char16_t* GetType(int index) const = 0;
  virtual const char16_t* GetType(const char16_t* qName) const = 0;
  virtual const char16_t* GetValue(int index) const = 0;
  virtual const char16_t* GetValue(const char16_t* qName) const = 0;
  virtual const char16_t* GetValue(const char16_t* uri, const char16_t* localName) const = 0;
  virtual int GetIndex(const char16_t* qName) const = 0;

 protected:
  ~Attributes_i() = default;
};

class EntityResolver_i {
 public:
  virtual InputSource_t* ResolveEntity(const char16_t* publicId, const char16_t* systemId) = 0;

 protected:
  ~EntityResolver_i() = default;
};

class DTDHandler_i {
 public:
  virtual void NotationDecl(const char16_t* name, const char16_t* publicId,
                            const char16_t* systemId) = 0;
  virtual void UnparsedEntityDecl(const char16_t* name, const char16_t* publicId,
                                  const char16_t* systemId, const char16_t* notationName) = 0;

 protected:
  ~DTDHandler_i() = default;
};

class ContentHandler_i {
 public:
  virtual void SetDocumentLocator(const Locator_i* locator) = 0;
  virtual void StartDocument() = 0;
  virtual void EndDocument() = 0;
  virtual void StartPrefixMapping(const char16_t* prefix, const char16_t* uri) = 0;
  virtual void EndPrefixMapping(const char16_t* prefix) = 0;
  virtual void StartElement(const char16_t* uri, const char16_t* localName, const char16_t* qName,
                            const Attributes_i& attributes) = 0;
  virtual void EndElement(const char16_t* uri, const char16_t* localName,
                          const char16_t* qName) = 0;
  /// A piece of text: `length` units from `start` on, which are all of the array.
  virtual void Characters(const char16_t* chars, int start, int length) = 0;
  virtual void IgnorableWhitespace(const char16_t* chars, int start, int length) = 0;
  virtual void ProcessingInstruction(const char16_t* target, const char16_t* data) = 0;
  virtual void SkippedEntity(const char16_t* name) = 0;

 protected:
  ~ContentHandler_i() = default;
};

class ErrorHandler_i {
 public:
  virtual void Warning(const TvXplMsg::Exception_t& exception) = 0;
  virtual void Error(const TvXplMsg::Exception_t& exception) = 0;
  virtual void FatalError(const TvXplMsg::Exception_t& exception) = 0;

 protected:
  ~ErrorHandler_i() = default;
};

/// Listens to everything and does nothing.
class DefaultHandler_t : public EntityResolver_i,
                         public DTDHandler_i,
                         public ContentHandler_i,
                         public ErrorHandler_i {
 public:
  virtual ~DefaultHandler_t() = default;
  InputSource_t* ResolveEntity(const char16_t*, const char16_t*) override { return nullptr; }
  void NotationDecl(const char16_t*, const char16_t*, const char16_t*) override {}
  void UnparsedEntityDecl(const char16_t*, const char16_t*, const char16_t*,
                          const char16_t*) override {}
  void SetDocumentLocator(const Locator_i*) override {}
  void StartDocument() override {}
  void EndDocument() override {}
  void StartPrefixMapping(const char16_t*, const char16_t*) override {}
  void EndPrefixMapping(const char16_t*) override {}
  void StartElement(const char16_t*, const char16_t*, const char16_t*,
                    const Attributes_i&) override {}
  void EndElement(const char16_t*, const char16_t*, const char16_t*) override {}
  void Characters(const char16_t*, int, int) override {}
  void IgnorableWhitespace(const char16_t*, int, int) override {}
  void ProcessingInstruction(const char16_t*, const char16_t*) override {}
  void SkippedEntity(const char16_t*) override {}
  void Warning(const TvXplMsg::Exception_t&) override {}
  void Error(const TvXplMsg::Exception_t&) override {}
  void FatalError(const TvXplMsg::Exception_t&) override {}
};

class XMLReader_t {
 public:
  virtual ~XMLReader_t() = default;
  /// The handler belongs to the caller; null takes it away.
  virtual void SetContentHandler(ContentHandler_i* handler) = 0;
  /// Reads a document from its beginning to its end and tells the handler what it meets.
  /// Throws TvXplMsg::Exception_t where the document is not well-formed.
  virtual void Parse(const InputSource_t& source) = 0;
};

}  // namespace SAX

/// Reads without validating. It reads nothing but the source: a document type declaration ends the
/// reading with an exception, so that no entity is ever expanded.
/// One reader belongs to one thread at a time; several may read at once.
class SAXParser_t : public SAX::XMLReader_t {
 public:
  /// Throws TvXplMsg::Exception_t if the XML library can't be started.
  SAXParser_t();
  ~SAXParser_t() override;
  SAXParser_t(const SAXParser_t&) = delete;
  SAXParser_t& operator=(const SAXParser_t&) = delete;

  void SetContentHandler(SAX::ContentHandler_i* handler) override { handler_ = handler; }
  void Parse(const SAX::InputSource_t& source) override;

 private:
  SAX::ContentHandler_i* handler_ = nullptr;
};

}  // namespace TvXplXml
