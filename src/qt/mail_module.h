// SPDX-License-Identifier: MIT
// What the module for mail (qt/mail) gives: connections.
#pragma once

#include "platform/socket.h"

#include <QtPlugin>

Q_DECLARE_INTERFACE(tessit::Sockets, "example.tessit.Control.Sockets/" TESSIT_VERSION)
