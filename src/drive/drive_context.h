// The state of the drive layer on top of the environment's.
#pragma once

#include <cstdint>
#include <memory>

#include "common/environment/environment.h"
#include "drive/drive_link.h"
#include "drive/drive_status.h"
#include "drive/drive_table.h"
#include "drive/parameter_tables.h"

namespace chartproject {

/// Drives, their parameters and the link to them.
struct DriveContext : Environment {
  DriveContext(Ports& thePorts, FormHost& theForms, DriveLinkFactory& theLinks)
      : Environment{thePorts, theForms}, linkFactory(theLinks) {}

  DriveTable driveTable;
  ParameterTables parameterTables;
  std::int16_t currentDrive = 0;  ///< the address that every parameter read uses
  DriveStatus status;
  DriveLinkFactory& linkFactory;
  LinkWait linkWait;                     ///< what a waiting link calls; set by who reads
  std::unique_ptr<DriveLink> driveLink;  ///< empty except while the acquisition dialog is up
};

}  // namespace chartproject
