import java.sql.Connection;
import java.sql.DriverManager;
import java.sql.ResultSet;
import java.sql.SQLException;
import java.sql.Statement;

/** The procedure that makes a stand, for HyperSQL: its PostgreSQL protocol gives back no rows of a procedure, but those
    of a function; and a function changes rows in Java only, by a session beside the caller's. */
public final class StandProcedure {
    private StandProcedure() {}

    /** Inserts an empty stand. @return its key */
    public static int insert(Connection caller) throws SQLException
    {
        String database = caller.getMetaData().getURL();
        try (Connection connection = DriverManager.getConnection(database, "kvx", "kvx");
             Statement statement = connection.createStatement()) {
            statement.executeUpdate("INSERT INTO WALDORT DEFAULT VALUES");
            try (ResultSet key = statement.executeQuery("CALL IDENTITY()")) {
                key.next();
                return key.getInt(1);
            }
        }
    }
}
