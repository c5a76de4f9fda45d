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

    @property
    def description(self):
        return self._node.get_description() or ""

    def centre(self):
        area = Atspi.Component.get_extents(self._node, Atspi.CoordType.SCREEN)
        return area.x + area.width // 2, area.y + area.height // 2

    def place(self):
        """Left, top, width and height on the screen."""
        area = Atspi.Component.get_extents(self._node, Atspi.CoordType.SCREEN)
        return area.x, area.y, area.width, area.height

    def states(self):
        return {state.value_nick for state in self._node.get_state_set().get_states()}

    def has(self, state):
        return state in self.states()

    def is_shown(self):
        return self.has("showing")

    def text(self):
        return Atspi.Text.get_text(self._node, 0, -1)

    def set_text(self, text):
        if not Atspi.EditableText.set_text_contents(self._node, text):
            raise AssertionError(f"no text can be put into the {self.role} “{self.name}”")

    def value(self):
        return Atspi.Value.get_current_value(self._node)

    def set_value(self, value):
        if not Atspi.Value.set_current_value(self._node, value):
            raise AssertionError(f"no value can be given to the {self.role} “{self.name}”")

    def actions(self):
        return [Atspi.Action.get_action_name(self._node, index)
                for index in range(Atspi.Action.get_n_actions(self._node))]

    def act(self, action):
        actions = self.actions()
        if action not in actions:
            raise AssertionError(f"the {self.role} “{self.name}” has no action {action}")
        Atspi.Action.do_action(self._node, actions.index(action))

    def press(self):
        self.act("Press")

    def focus(self):
        self.act("SetFocus")

    def children(self):
        children = []
        for index in range(self._node.get_child_count()):
            child = self._node.get_child_at_index(index)
            if child is not None:
                children.append(Widget(child))
        return children

    def shown_children(self):
        return [child for child in self.children() if child.is_shown()]

    def descendants(self):
        yield self
        for child in self.shown_children():
            yield from child.descendants()

    def path(self):
        """The names of what it is in, innermost first."""
        names, node = [], self._node.get_parent()
        while node is not None and node.get_role_name() != "application":
            names.append(f"{node.get_role_name()} “{node.get_name()}”")
            node = node.get_parent()
        return " in ".join(names)

    def __str__(self):
        return f"{self.role} “{self.name}”"


class Events:
    """What assistive programs are told without asking, from when this is made."""

    def __init__(self, kind):
        self.told = []
        self._kind = kind
        self._listener = Atspi.EventListener.new(self._hear)
        self._listener.register(kind)

    def close(self):
        self._listener.deregister(self._kind)

    def take(self, source):
        """What to keep of an event that begins something, or None."""
        raise NotImplementedError

    def _hear(self, event):
        heard = self.take(event.source) if event.detail1 else None
        if heard is not None:
            self.told.append(heard)

    def catch_up(self):
        while GLib.MainContext.default().iteration(False):
            pass


class FocusEvents(Events):
    """Where the focus went."""

    def __init__(self):
        super().__init__("object:state-changed:focused")

    def take(self, source):
        return source.get_role_name(), source.get_name()

    def wait_for(self, role, name):
        def is_told():
            self.catch_up()
            return self.told[-1:] == [(role, name)]
        try:
            wait_for(f"word of the focus on the {role} “{name}”", is_told)
        except AssertionError as failure:
            raise AssertionError(f"{failure}; told was {self.told}") from None


class Ear(Events):
    """The alerts that come to be shown, in their order."""

    def __init__(self):
        super().__init__("object:state-changed:showing")

    def take(self, source):
        return source.get_name() if source.get_role() == Atspi.Role.ALERT else None

    def heard(self):
        self.catch_up()
        return list(self.told)


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
        """Those on the screen. While the program changes under our eyes, a look may have to be
        taken again."""
        for _ in range(20):
            try:
                application = self._application()
                return list(application.descendants()) if application else []
            except (GLib.Error, AttributeError):
                continue
        return []

    def look(self, role, name):
        for widget in self.widgets():
            if widget.role == role and widget.name == name:
                return widget
        return None

    def find(self, role, name):
        return wait_for(f"the {role} “{name}”", lambda: self.look(role, name))

    def wait_until_gone(self, role, name):
        def is_gone():
            widgets = self.widgets()
            return widgets and all((widget.role, widget.name) != (role, name) for widget in widgets)
        wait_for(f"the {role} “{name}” to go", is_gone)

    def focused(self):
        """The innermost control that has the focus."""
        with_focus = [widget for widget in self.widgets() if widget.has("focused")]
        return with_focus[-1] if with_focus else None

    def wait_for_focus(self, role, name):
        def is_there():
            widget = self.focused()
            return widget and (widget.role, widget.name) == (role, name)
        try:
            wait_for(f"the focus on the {role} “{name}”", is_there)
        except AssertionError as failure:
            raise AssertionError(f"{failure}; it is on {self.focused()}") from None

    def names(self, role):
        return [widget.name for widget in self.widgets() if widget.role == role]
