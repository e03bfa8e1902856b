using System;
using System.Runtime.InteropServices;
using System.Threading;

namespace VeskSondrel
{
    /// <summary>All readings without a session of this object's own. Those that need one are null, with
    /// <see cref="State.NoSession"/>, unless one is open all the same.</summary>
    public sealed class Sondrel : Readings
    {
        /// <summary>Loads the library from a file. Without this call the runtime looks for it as for every DllImport:
        /// next to the program, usually.</summary>
        /// <exception cref="DllNotFoundException">It cannot be loaded; with the system's message.</exception>
        public static void Load(string path)
        {
            Loader.Load(path);
        }
    }

    /// <summary>A driver session: what talks to the embedded controller, the driver or the processor needs one. Closed by
    /// Dispose. Sessions are counted: a host may have several, and the last one closes the device.</summary>
    /// <example><code>
    /// using (var session = Session.Open())
    /// {
    ///     uint? degrees = session.Thermal.CpuTemperature();
    /// }
    /// </code></example>
    public sealed class Session : Readings, IDisposable
    {
        private readonly SessionHandle handle;

        private Session(SessionHandle handle)
        {
            this.handle = handle;
        }

        /// <summary>Opens a session, or adds one reference to the one that is open.</summary>
        /// <exception cref="ReadingException">The driver's device is missing or refused to open; a later attempt can
        /// succeed.</exception>
        public static Session Open()
        {
            Failure failure;
            return TryOpen(out failure) ?? throw new ReadingException(failure);
        }

        /// <summary>Opens a session; null and the failure if that is not possible.</summary>
        public static Session TryOpen(out Failure failure)
        {
            var handle = SessionHandle.Open(out failure);
            return handle == null ? null : new Session(handle);
        }

        /// <summary>Gives the session back.</summary>
        public void Dispose()
        {
            handle.Dispose();
        }

        internal override void Use()
        {
            if (handle.IsClosed)
            {
                throw new ObjectDisposedException(nameof(Session));
            }
        }
    }

    /// <summary>Owns one reference to the driver session. It has no number, so that any means it.</summary>
    internal sealed class SessionHandle : SafeHandle
    {
        private static int open;

        private SessionHandle() : base(IntPtr.Zero, true)
        {
        }

        /// <summary>Whether a session of this binding is open.</summary>
        internal static bool AnyOpen
        {
            get { return Volatile.Read(ref open) > 0; }
        }

        public override bool IsInvalid
        {
            get { return handle == IntPtr.Zero; }
        }

        internal static SessionHandle Open(out Failure failure)
        {
            const int Opened = 1;
            var made = new SessionHandle();
            int result;
            using (new Locks(Resources.Session | Resources.DriverDevice))
            {
                result = NativeMethods.InitializeSondrel();
            }
            if (result != Opened)
            {
                made.SetHandleAsInvalid();
                Call.Number(Entries.InitializeSondrel, result, out failure);
                return null;
            }
            failure = null;
            Interlocked.Increment(ref open);
            made.SetHandle(new IntPtr(result));
            return made;
        }

        protected override bool ReleaseHandle()
        {
            Interlocked.Decrement(ref open);
            using (new Locks(Resources.Session | Resources.DriverDevice))
            {
                NativeMethods.ShutdownSondrel();
            }
            return true;
        }
    }
}
