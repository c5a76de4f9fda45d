"""What assistive programs see of a running program."""

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from display import wait_for  # noqa: E402


class Widget:
    """One control as the accessibility tree shows it now."""

    def __init__(self, node):
        self._node = node
        self.name = node.get_name() or ""
        self.role = node.get_role_name()
        self.description = node.get_description() or ""

    def centre(self):
        area = Atspi.Component.get_extents(self._node, Atspi.CoordType.SCREEN)
        return area.x + area.width // 2, area.y + area.height // 2

    def is_shown(self):
        return self._node.get_state_set().contains(Atspi.StateType.SHOWING)

    def text(self):
        return Atspi.Text.get_text(self._node, 0, -1)

    def children(self):
        children = []
        for index in range(self._node.get_child_count()):
            child = self._node.get_child_at_index(index)
            if child is not None:
                children.append(Widget(child))
        return children

    def descendants(self):
        yield self
        for child in self.children():
            if child.is_shown():
                yield from child.descendants()


class Program:
    """The controls of the program with a process id."""

    def __init__(self, process_id):
        self._process_id = process_id

    def _application(self):
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()
        for index in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(index)
            if application is not None and application.get_process_id() == self._process_id:
                application.set_cache_mask(Atspi.Cache.NONE)
                return Widget(application)
        return None

    def widgets(self):
        """Those on the screen; none while the program changes under our eyes."""
        try:
            application = self._application()
            return list(application.descendants()) if application else []
        except (GLib.Error, AttributeError):
            return []

    def look(self, role, name):
        for widget in self.widgets():
            if widget.role == role and widget.name == name:
                return widget
        return None

    def find(self, role, name):
        return wait_for(f"the {role} “{name}”", lambda: self.look(role, name))

    def names(self, role):
        return [widget.name for widget in self.widgets() if widget.role == role]
