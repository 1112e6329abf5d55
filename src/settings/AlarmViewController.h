// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/uikit/UIViewController.h"

namespace zorel {

/// The screen of the alarm editor: carries its view and its title, nothing else.
class AlarmViewController : public UIViewController {};

} // namespace zorel
