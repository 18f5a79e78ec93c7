// Opening and closing.
#include "drive/drive_link_session.h"

#include <utility>

namespace chartproject {

DriveLinkSession::DriveLinkSession(DriveContext& context) : context_(context) {
  context_.driveLink = context_.linkFactory.Create(context_.linkWait);
}

DriveLinkSession::~DriveLinkSession() {
  try {
    Close();
  } catch (const std::exception&) {
    context_.driveLink.reset();
  }
}

void DriveLinkSession::Open() {
  context_.driveLink->OpenLink();
  open_ = true;
}

void DriveLinkSession::Close() {
  const std::unique_ptr<DriveLink> link = std::move(context_.driveLink);
  if (std::exchange(open_, false)) link->CloseLink();
}

}  // namespace chartproject
