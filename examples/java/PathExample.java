import com.corvane.tv.zntopology.Topology;
import com.corvane.tv.zntopology.TopologyException;
import com.corvane.tv.zntopology.ZorbInterface;

/** Prints the layer-2 path between two addresses of the store that TV_TOPO_STORE names. */
public class PathExample {
  public static void main(String[] args) {
    if (args.length != 2) {
      System.err.println("usage: PathExample FROM TO");
      System.exit(2);
    }
    try {
      Topology topology = Topology.withoutNodeCache();
      for (ZorbInterface hop : topology.path(args[0], args[1])) {
        System.out.println(
            hop.getContainmentParent().name() + " " + hop.getIFProperty().ifName());
      }
    } catch (TopologyException e) {
      System.err.println(e.getMessage());
      System.exit(1);
    }
  }
}
