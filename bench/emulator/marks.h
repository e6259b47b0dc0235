/* How a measured program tells the plugin where to count: a system call that the system does not
   know, with one argument. */
#pragma once

#define WELMO_MARK 4242
#define WELMO_MARK_BEGIN 1
#define WELMO_MARK_END 2
