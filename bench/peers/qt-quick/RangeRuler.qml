import QtQuick

// The ticks in sight alone, moved and labelled anew for another start.
Item {
    id: root
    property real start
    property real step
    property real pitch
    readonly property int first: Math.floor(start / step)
    width: 1000
    height: 40
    clip: true
    Timecode { id: timecode }
    Repeater {
        model: Math.ceil(root.width / root.pitch) + 1
        Tick {
            required property int index
            x: ((root.first + index) * root.step - root.start) / root.step * root.pitch
            height: root.height
            label: timecode.text((root.first + index) * root.step)
        }
    }
    Repeater {
        model: 2 * (Math.ceil(root.width / root.pitch) + 1)
        Rectangle {
            required property int index
            x: ((root.first + index / 2) * root.step - root.start) / root.step * root.pitch
            width: 1
            height: 0.15 * root.height
            color: "gray"
        }
    }
}
