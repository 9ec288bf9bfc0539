"""What a plain walk needs of a network, whatever the format of its file."""
import collections


class Network:
    """Devices, which of them are routers, and links: sets of two (device, interface's label).

    Readers of a format fill devices, routers and links and say the name of a device.
    """
    devices = set()
    routers = set()
    links = set()

    def name(self, device):
        raise NotImplementedError

    def distances(self, start, cross_routers=True):
        """How many links away each device is; a router is gone through only if that is allowed."""
        far = collections.defaultdict(set)
        for link in self.links:
            (left, _), (right, _) = link
            far[left].add(right)
            far[right].add(left)
        distance = {start: 0}
        queue = collections.deque([start])
        while queue:
            here = queue.popleft()
            if here != start and here in self.routers and not cross_routers:
                continue
            for there in far[here] - distance.keys():
                distance[there] = distance[here] + 1
                queue.append(there)
        return distance
