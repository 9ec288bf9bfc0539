#include "tools/import/XmlDocument.h"

#include <algorithm>
#include <cstring>
#include <xercesc/sax/InputSource.hpp>
#include <xercesc/sax/Locator.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/util/BinInputStream.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/XMLException.hpp>

#include "zntopo/platform/tvxpl/TvXplMsg.h"
#include "zntopo/platform/tvxpl/TvXplStr.h"
#include "zntopo/platform/tvxpl/XmlLibrary.h"

namespace zntopo::tools {

namespace {

namespace xml = xercesc;
using TvXplStr::narrowed;

/// Starts the XML library once for the process, which never stops it.
void startXml() {
  static const bool isStarted = [] {
    try {
      TvXplXml::startXmlLibrary();
    } catch (const TvXplMsg::Exception_t& exception) {
      throw std::runtime_error(exception.GetMessages().GetMessage(0).GetText());
    }
    return true;
  }();
  static_cast<void>(isStarted);
}

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
    XmlElement element{{narrowed(space), narrowed(local)}, {}, place()};
    if (++depth_ > limits_.depth) {
      throw ImportError(element.place.in(file_),
                        "is nested deeper than " + std::to_string(limits_.depth) + " levels");
    }
    element.attributes.reserve(attributes.getLength());
    for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
      element.attributes.push_back(
          {{narrowed(attributes.getURI(i)), narrowed(attributes.getLocalName(i))},
           narrowed(attributes.getValue(i))});
    }
    handler_.startElement(element);
  }
  void endElement(const XMLCh* const, const XMLCh* const, const XMLCh* const) override {
    --depth_;
    handler_.endElement();
  }
  void characters(const XMLCh* const text, const XMLSize_t size) override {
    handler_.text(TvXplStr::narrow({text, size}));
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

  std::string shortText(const XMLCh* message) { return shortComplaint(narrowed(message)); }

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
};

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
  const auto reader = TvXplXml::makeXmlReader(listener);
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
