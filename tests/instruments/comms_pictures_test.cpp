// The link buttons' pictures follow the state of the links.
#include <gtest/gtest.h>

#include "instruments/comms.h"

using namespace kelvane;

TEST(LinkPictures, FollowTheLinks) {
  CommsState comms;
  LinkPictures p = LinkPicturesFor(comms, false);
  EXPECT_EQ(p.gps, "configengps.bmp");
  EXPECT_EQ(p.ais, "confenais.bmp");
  comms.GPSPortOpen = -1;
  comms.AISPortOpen = -1;
  p = LinkPicturesFor(comms, false);
  EXPECT_EQ(p.gps, "configdisgps.bmp");
  EXPECT_EQ(p.ais, "confdisais.bmp");
  // GPS data coming through the AIS port: the AIS button says so.
  EXPECT_EQ(LinkPicturesFor(comms, true).ais, "configdisaisgps.bmp");
}
