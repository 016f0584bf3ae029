// What the commands of the store ask of the layers above them.
#pragma once

namespace talpena {

struct RecordScreen;

class StorePort {
 public:
  virtual ~StorePort() = default;
  virtual void MontreOptionsPeriodes() = 0;  ///< frmOptionsPeriodes, modal
  /// Latitude and longitude of every row anew from its original coordinates.
  virtual void RecalculeCoordonnees() = 0;
  /// frmGeoQuery, modal: the place that is chosen there stands in the record form behind it.
  virtual void ChercheLieu(RecordScreen& fiche) = 0;
};

}  // namespace talpena
