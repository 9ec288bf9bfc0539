#pragma once

#include <cstdint>
#include <string>

#include "zntopo/model/AssEndPoint.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// A relation between two ends, with the nodes that carry them. A plain value.
class ZNTOPO_EXPORT RelatedToAss {
 public:
  RelatedToAss() = default;
  RelatedToAss(const AssEndPoint& leftEnd, const AssEndPoint& rightEnd, std::uint64_t speed,
               short protocol, short relType, bool duplex)
      : RelatedToAss(leftEnd, rightEnd, speed, protocol, relType, duplex, ObjID(), ObjID()) {}
  RelatedToAss(const AssEndPoint& leftEnd, const AssEndPoint& rightEnd, std::uint64_t speed,
               short protocol, short relType, bool duplex, const ObjID& leftNodeID,
               const ObjID& rightNodeID)
      : _leftEnd(leftEnd),
        _rightEnd(rightEnd),
        _speed(speed),
        _duplex(duplex),
        _protocol(protocol),
        _relType(relType),
        _leftNodeID(leftNodeID),
        _rightNodeID(rightNodeID) {}

  const AssEndPoint& getLeftEnd() const { return _leftEnd; }
  const AssEndPoint& getRightEnd() const { return _rightEnd; }
  std::uint64_t getSpeed() const { return _speed; }
  bool isDuplex() const { return _duplex; }
  short getProtocol() const { return _protocol; }
  short getRelType() const { return _relType; }
  const ObjID& getLeftNodeID() const { return _leftNodeID; }
  const ObjID& getRightNodeID() const { return _rightNodeID; }

  /// Tells the low 32 bits of the speed, with a sign.
  std::string toString() const;

  void setLeftEnd(const AssEndPoint& end) { _leftEnd = end; }
  void setRightEnd(const AssEndPoint& end) { _rightEnd = end; }
  void setSpeed(std::uint64_t speed) { _speed = speed; }
  void setDuplexMode(bool duplex) { _duplex = duplex; }
  void setProtocol(short protocol) { _protocol = protocol; }
  void setRelType(short relType) { _relType = relType; }
  void setLeftNodeID(const ObjID& id) { _leftNodeID = id; }
  void setRightNodeID(const ObjID& id) { _rightNodeID = id; }

 private:
  AssEndPoint _leftEnd;
  AssEndPoint _rightEnd;
  std::uint64_t _speed = 0;
  bool _duplex = false;
  short _protocol = 0;
  short _relType = 0;
  ObjID _leftNodeID;
  ObjID _rightNodeID;
};

}  // namespace zntopo
