#include "tools/import/XmlDocument.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <xercesc/framework/XMLFormatter.hpp>
#include <xercesc/sax/InputSource.hpp>
#include <xercesc/sax/Locator.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/BinInputStream.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PanicHandler.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/TransService.hpp>
#include <xercesc/util/XMLException.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XMLUni.hpp>

namespace zntopo::tools {

namespace {

namespace xml = xercesc;

/// The library's own handler writes to standard error and ends the process.
class ThrowingPanicHandler : public xml::PanicHandler {
 public:
  void panic(const PanicReasons reason) override {
    throw std::runtime_error(std::string("the XML library can't work: ") +
                             getPanicReasonString(reason));
  }
};

/// Starts the XML library once for the process, which never stops it.
void startXml() {
  static const bool isStarted = [] {
    static auto* const panicHandler = new ThrowingPanicHandler;
    try {
      xml::XMLPlatformUtils::Initialize(xml::XMLUni::fgXercescDefaultLocale, nullptr, panicHandler);
    } catch (const xml::XMLException&) {
      throw std::runtime_error("the XML library can't be started");
    }
    return true;
  }();
  static_cast<void>(isStarted);
}

/// Turns the XML library's texts into UTF-8.
class Utf8 {
 public:
  Utf8() {
    xml::XMLTransService::Codes code{};
    transcoder_.reset(xml::XMLPlatformUtils::fgTransService->makeNewTranscoderFor(
        xml::XMLRecognizer::UTF_8, code, kBlock));
    if (!transcoder_) throw std::runtime_error("the XML library has no UTF-8");
  }

  std::string of(const XMLCh* text) { return of(text, xml::XMLString::stringLen(text)); }
  std::string of(const XMLCh* text, XMLSize_t size) {
    std::string result;
    std::array<XMLByte, kBlock> block{};
    while (size > 0) {
      XMLSize_t eaten = 0;
      const XMLSize_t made = transcoder_->transcodeTo(text, size, block.data(), block.size(), eaten,
                                                      xml::XMLTranscoder::UnRep_RepChar);
      if (eaten == 0) break;  // half of a pair, which the parser lets nowhere else than in messages
      result.append(reinterpret_cast<const char*>(block.data()), made);
      text += eaten;
      size -= eaten;
    }
    return result;
  }

 private:
  static constexpr XMLSize_t kBlock = 4096;
  std::unique_ptr<xml::XMLTranscoder> transcoder_;
};

/// A file's bytes, and how far they have been read.
class Stream : public xml::BinInputStream {
 public:
  Stream(const std::string& text, const ProgressFunction& progress)
      : text_(text), progress_(progress) {}

  XMLFilePos curPos() const override { return position_; }
  XMLSize_t readBytes(XMLByte* const target, const XMLSize_t most) override {
    const std::size_t count = std::min<std::size_t>(most, text_.size() - position_);
    std::memcpy(target, text_.data() + position_, count);
    position_ += count;
    if (progress_ && count > 0) {
      progress_(static_cast<double>(position_) / static_cast<double>(text_.size()));
    }
    return count;
  }
  const XMLCh* getContentType() const override { return nullptr; }

 private:
  const std::string& text_;
  const ProgressFunction& progress_;
  std::size_t position_ = 0;
};

class Source : public xml::InputSource {
 public:
  Source(const std::string& text, const ProgressFunction& progress)
      : text_(text), progress_(progress) {}
  /// The parser deletes what it gets.
  xml::BinInputStream* makeStream() const override { return new Stream(text_, progress_); }

 private:
  const std::string& text_;
  const ProgressFunction& progress_;
};

/// Stands between the parser and a handler.
class Listener : public xml::DefaultHandler {
 public:
  Listener(const InputFile& file, const XmlLimits& limits, XmlHandler& handler)
      : file_(file), limits_(limits), handler_(handler) {}

  void setDocumentLocator(const xml::Locator* const locator) override { locator_ = locator; }

  void startElement(const XMLCh* const space, const XMLCh* const local, const XMLCh* const,
                    const xml::Attributes& attributes) override {
    XmlElement element{{utf8_.of(space), utf8_.of(local)}, {}, place()};
    if (++depth_ > limits_.depth) {
      throw ImportError(element.place.in(file_),
                        "is nested deeper than " + std::to_string(limits_.depth) + " levels");
    }
    element.attributes.reserve(attributes.getLength());
    for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
      element.attributes.push_back(
          {{utf8_.of(attributes.getURI(i)), utf8_.of(attributes.getLocalName(i))},
           utf8_.of(attributes.getValue(i))});
    }
    handler_.startElement(element);
  }
  void endElement(const XMLCh* const, const XMLCh* const, const XMLCh* const) override {
    --depth_;
    handler_.endElement();
  }
  void characters(const XMLCh* const text, const XMLSize_t size) override {
    handler_.text(utf8_.of(text, size));
  }

  /// Comes before anything of a declaration is read that goes beyond the root's name, so that
  /// nothing of it ever is.
  void startDTD(const XMLCh* const, const XMLCh* const, const XMLCh* const) override {
    throw ImportError(place().in(file_),
                      "has a document type declaration, which is refused: remove \"<!DOCTYPE\"");
  }
  xml::InputSource* resolveEntity(const XMLCh* const, const XMLCh* const) override {
    throw ImportError(place().in(file_), "names another file, which is not read");
  }

  void fatalError(const xml::SAXParseException& error) override { refuse(error); }
  void error(const xml::SAXParseException& error) override { refuse(error); }
  void warning(const xml::SAXParseException&) override {}

  std::string shortText(const XMLCh* message) { return shortComplaint(utf8_.of(message)); }

 private:
  XmlPlace place() const {
    if (!locator_) return {1, 1};
    return {locator_->getLineNumber(), locator_->getColumnNumber()};
  }
  [[noreturn]] void refuse(const xml::SAXParseException& error) {
    throw ImportError(XmlPlace{error.getLineNumber(), error.getColumnNumber()}.in(file_),
                      shortText(error.getMessage()));
  }

  const InputFile& file_;
  XmlLimits limits_;
  XmlHandler& handler_;
  const xml::Locator* locator_ = nullptr;
  int depth_ = 0;
  Utf8 utf8_;
};

std::unique_ptr<xml::SAX2XMLReader> makeReader(Listener& listener) {
  std::unique_ptr<xml::SAX2XMLReader> reader(xml::XMLReaderFactory::createXMLReader());
  reader->setFeature(xml::XMLUni::fgSAX2CoreNameSpaces, true);
  reader->setFeature(xml::XMLUni::fgSAX2CoreValidation, false);
  reader->setFeature(xml::XMLUni::fgXercesSchema, false);
  reader->setFeature(xml::XMLUni::fgXercesLoadSchema, false);
  reader->setFeature(xml::XMLUni::fgXercesLoadExternalDTD, false);
  reader->setFeature(xml::XMLUni::fgXercesDisableDefaultEntityResolution, true);
  reader->setContentHandler(&listener);
  reader->setLexicalHandler(&listener);
  reader->setEntityResolver(&listener);
  reader->setErrorHandler(&listener);
  return reader;
}

}  // namespace

std::string XmlPlace::in(const InputFile& file) const {
  return file.label + ":" + std::to_string(line) + ":" + std::to_string(column);
}

const std::string* XmlElement::find(std::string_view attribute) const {
  const auto found =
      std::find_if(attributes.begin(), attributes.end(), [&](const XmlAttribute& one) {
        return one.name.space.empty() && one.name.local == attribute;
      });
  return found == attributes.end() ? nullptr : &found->value;
}

void readXml(const InputFile& file, XmlHandler& handler, const XmlLimits& limits,
             const ProgressFunction& progress) {
  if (file.text.empty()) throw ImportError(file.label, "is empty");
  startXml();
  Listener listener(file, limits, handler);
  const auto reader = makeReader(listener);
  try {
    reader->parse(Source(file.text, progress));
  } catch (const xml::OutOfMemoryException&) {
    throw ImportError(file.label, "needs more memory than there is");
  } catch (const xml::SAXException& error) {
    throw ImportError(file.label, listener.shortText(error.getMessage()));
  } catch (const xml::XMLException& error) {
    throw ImportError(file.label, listener.shortText(error.getMessage()));
  }
}

}  // namespace zntopo::tools
