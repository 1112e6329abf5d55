// SPDX-License-Identifier: Apache-2.0
/// @file
/// What the shared library hands out. Everything else that it is made of stays inside it.
#pragma once

#define ZOREL_API __attribute__((visibility("default")))
