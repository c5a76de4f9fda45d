#pragma once

#include <cstdint>

// Each kind of object is its own type, and all are dispatch objects.
struct dispatch_object_s { };
struct dispatch_queue_s : dispatch_object_s { };
struct dispatch_source_s : dispatch_object_s { };
struct dispatch_source_type_s;
using dispatch_object_t = dispatch_object_s *;
using dispatch_queue_t = dispatch_queue_s *;
using dispatch_source_t = dispatch_source_s *;
using dispatch_source_type_t = const dispatch_source_type_s *;
using dispatch_function_t = void (*)(void *);

constexpr unsigned long DISPATCH_VNODE_DELETE = 0x1;
constexpr unsigned long DISPATCH_VNODE_WRITE = 0x2;
constexpr unsigned long DISPATCH_VNODE_EXTEND = 0x4;
constexpr unsigned long DISPATCH_VNODE_RENAME = 0x20;

extern "C" {

extern const dispatch_source_type_s _dispatch_source_type_vnode;
#define DISPATCH_SOURCE_TYPE_VNODE (&_dispatch_source_type_vnode)

dispatch_queue_t dispatch_get_main_queue();
dispatch_source_t dispatch_source_create(dispatch_source_type_t type, uintptr_t handle,
                                         unsigned long mask, dispatch_queue_t queue);
void dispatch_source_set_event_handler_f(dispatch_source_t source, dispatch_function_t handler);
void dispatch_source_set_cancel_handler_f(dispatch_source_t source, dispatch_function_t handler);
void dispatch_source_cancel(dispatch_source_t source);
void dispatch_set_context(dispatch_object_t object, void *context);
void dispatch_resume(dispatch_object_t object);
void dispatch_release(dispatch_object_t object);
#ifdef __BLOCKS__
void dispatch_async(dispatch_queue_t queue, void (^block)());
#endif
}
