#include "tessa/basecontentwidget.h"

// The class is inline; this file gives its meta-object a home.
