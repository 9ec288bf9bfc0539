#pragma once

namespace zntopo {

/// Describes a page of a result. Paging is not carried out: every operation that takes one
/// answers in full and neither reads nor fills it.
class BatchInfo {
 public:
  explicit BatchInfo(long theBatchSize) : myBatchSize(theBatchSize) {}

  long getBatchSize() const { return myBatchSize; }
  bool hasNext() const { return myHasNext; }
  void setHasNext(bool theHasNext) { myHasNext = theHasNext; }
  long getResultSetID() const { return myResultSetID; }
  void setResultSetID(long theResultSetID) { myResultSetID = theResultSetID; }

 private:
  long myBatchSize;
  bool myHasNext = false;
  long myResultSetID = 0;
};

}  // namespace zntopo
