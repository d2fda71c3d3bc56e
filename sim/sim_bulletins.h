#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/bulletins.h"
#include "host/icon.h"
#include "sim/sim_object.h"

namespace tessel::sim {

// A notification as the host keeps it.
class SimBulletin : public SimObject, public virtual host::Bulletin {
 public:
  SimBulletin(SimHost& host, std::shared_ptr<SimClass> cls, std::string title, std::string message, double date)
      : SimObject(host, std::move(cls)), title_(std::move(title)), message_(std::move(message)), date_(date) {}

  // |host::Bulletin|
  host::String title() const override { return title_; }
  host::String message() const override { return message_; }
  double date() const override { return date_; }

 private:
  std::string title_;
  std::string message_;
  double date_;
};

// One application's section, answering both host generations.
class SimNotificationSection : public SimObject,
                               public virtual host::BulletinListSection,
                               public virtual host::LegacyBulletinSection {
 public:
  SimNotificationSection(SimHost& host, std::shared_ptr<SimClass> cls, std::string sectionID)
      : SimObject(host, std::move(cls)), sectionID_(std::move(sectionID)) {}

  // |host::BulletinListSection| and |host::LegacyBulletinSection|
  host::String sectionID() const override { return sectionID_; }
  // |host::BulletinListSection|
  host::BulletinArray bulletins() const override { return bulletins_; }
  // |host::LegacyBulletinSection|
  std::uint64_t bulletinCount() const override { return bulletins_.size(); }
  host::Ref<host::Bulletin> bulletinAtIndex(std::uint64_t index) const override {
    return host::objectAtIndex(bulletins_, index);
  }

  // Newest first, as the list shows them.
  void addNewest(host::Ref<host::Bulletin> bulletin) { bulletins_.insert(bulletins_.begin(), std::move(bulletin)); }
  void addOldest(host::Ref<host::Bulletin> bulletin) { bulletins_.push_back(std::move(bulletin)); }

 private:
  std::string sectionID_;
  host::BulletinArray bulletins_;
};

// The view controller of one section (current generation).
class SimSectionController : public SimObject, public virtual host::BulletinSectionController {
 public:
  SimSectionController(SimHost& host, std::shared_ptr<SimClass> cls, std::shared_ptr<SimNotificationSection> section)
      : SimObject(host, std::move(cls)), section_(std::move(section)) {}

  // |host::BulletinSectionController|
  host::Ref<host::BulletinListSection> representedListSection() const override {
    return host::Ref<host::BulletinListSection>(section_);
  }

 private:
  std::shared_ptr<SimNotificationSection> section_;
};

// The sections of the notification list, in order, shared by the
// controllers of both generations.
struct NotificationList {
  std::vector<std::shared_ptr<SimNotificationSection>> sections;
  std::vector<std::shared_ptr<SimSectionController>> controllers;
};

// `SBBulletinViewController` (current generation).
class SimBulletinViewController : public SimObject, public virtual host::BulletinViewController {
 public:
  SimBulletinViewController(SimHost& host, std::shared_ptr<SimClass> cls, std::shared_ptr<NotificationList> list)
      : SimObject(host, std::move(cls)), list_(std::move(list)) {}

  // |host::BulletinViewController|
  host::Ref<host::BulletinSectionController> sectionAtIndex(std::int64_t index) const override;

 private:
  std::shared_ptr<NotificationList> list_;
};

// `SBBulletinListController` (older generation).
class SimBulletinListController : public SimObject, public virtual host::BulletinListController {
 public:
  SimBulletinListController(SimHost& host, std::shared_ptr<SimClass> cls, std::shared_ptr<NotificationList> list)
      : SimObject(host, std::move(cls)), list_(std::move(list)) {}

  // |host::BulletinListController|
  host::Ref<host::LegacyBulletinSection> _sectionAtIndex(std::int64_t index) const override;

 private:
  std::shared_ptr<NotificationList> list_;
};

}  // namespace tessel::sim
