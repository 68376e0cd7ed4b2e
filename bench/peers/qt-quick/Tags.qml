import QtQuick

Item {
    id: root
    property var model
    property bool hover: false
    property alias flow: flow
    width: 1000
    height: 800
    Component { id: plainTag; Tag {} }
    Component { id: hoverTag; HoverTag {} }
    Flow {
        id: flow
        width: root.width
        spacing: 2
        Repeater {
            model: root.model
            delegate: root.hover ? hoverTag : plainTag
        }
    }
}
