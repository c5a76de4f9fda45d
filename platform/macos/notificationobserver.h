#pragma once

#include <functional>
#include <memory>

#import <Foundation/Foundation.h>

/// Listens to one notification of the default centre while it lives, for the Objective-C++ sources
/// of this folder.
class NotificationObserver {
public:
    /// `received` is called on the thread that posts, with a pool open. A nil `sender` is any.
    NotificationObserver(NSString *name, id sender, std::function<void(NSNotification *)> received);
    NotificationObserver(const NotificationObserver &) = delete;
    NotificationObserver &operator=(const NotificationObserver &) = delete;
    ~NotificationObserver();

private:
    struct Target;
    std::unique_ptr<Target> m_target;
};
